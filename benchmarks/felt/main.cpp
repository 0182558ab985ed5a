// orvan-felt: measures from an input to the pixels of the answer, from outside. ./bench --felt builds it and passes its
// arguments on.

#include "benchmarks/Machine.h"
#include "benchmarks/Options.h"
#include "benchmarks/Results.h"
#include "benchmarks/felt/Rows.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace orvan::felt;
using orvan::bench::Results;
using orvan::bench::RowResult;
using orvan::bench::Spread;
using orvan::bench::Unit;
using orvan::bench::Verdict;

constexpr const char* kHelp =
    "usage: ./bench --felt [--against DESK] [--processor-time] [--json FILE] [--compare FILE] [NAME...]\n"
    "       ./bench --felt --list\n"
    "\n"
    "Works with the desk and with small programs of Qt's own widgets on a virtual X server, by keys and clicks, and\n"
    "prints how long the pixels of the answer take; medians, measured in turn, and in brackets between what figures\n"
    "the middle half of the samples lies.\n"
    "Exits with 1 and names the rows that fall short of their bound by more than half.\n"
    "\n"
    "  NAME              only the rows whose names begin so, such as \"editor\"\n"
    "  --against DESK    another build of orvan-desk in place of the small programs, to see what a change has brought\n"
    "  --processor-time  what the programs themselves take, instead of the time to the pixels: for a machine that "
    "does\n"
    "                    much else meanwhile\n"
    "  --json FILE       also writes what was measured into the file\n"
    "  --compare FILE    also prints each figure beside the one of an earlier run, whose file this is\n"
    "  --list            the names of all rows\n";

/// Samples that come first, to warm up, and do not count. An even number, because keys are typed and taken back.
constexpr int kWarmUp = 4;
/// A row that is nearer to its bound than this is measured once more before it is judged.
constexpr double kClose = 0.05;

struct Figures {
    std::vector<double> ours, peers;
};

/// What a claim is about: the median of the samples, with their spread, or their 99th percentile alone.
Spread spread(std::vector<double> samples, const Claim& claim)
{
    if (!claim.percentile99) {
        return orvan::bench::spreadOf(samples);
    }
    const auto at = samples.begin() + std::lround(static_cast<double>(samples.size() - 1) * 0.99);
    std::nth_element(samples.begin(), at, samples.end());
    return {*at, *at, *at};
}

orvan::bench::Judgement judge(const Figures& figures, const Claim& claim)
{
    return orvan::bench::judge(claim.bound, spread(figures.ours, claim).median, spread(figures.peers, claim).median);
}

bool isClose(const Row& row, const Figures& figures)
{
    return std::any_of(row.claims.begin(), row.claims.end(),
                       [&](const Claim& claim) { return std::abs(judge(figures, claim).shortBy - 1) < kClose; });
}

Figures measure(const Row& row, const Stage& ours, const Stage& peers)
{
    const Sampler our = row.ours.prepare(ours), peer = row.peer.prepare(peers);
    for (int i = 0; i < kWarmUp; ++i) {
        our();
        peer();
    }
    Figures figures;
    const auto takeTurns = [&] {
        for (int i = 0; i < row.samples; i += row.block) {
            std::generate_n(std::back_inserter(figures.ours), row.block, our);
            std::generate_n(std::back_inserter(figures.peers), row.block, peer);
        }
    };
    takeTurns();
    if (isClose(row, figures)) {
        takeTurns();
    }
    return figures;
}

std::string label(const Row& row, const Claim& claim)
{
    return row.name + (claim.percentile99 ? ", 99th percentile" : "");
}

/// Measures the row. Returns a result for each of its claims.
std::vector<RowResult> results(const Row& row, const Stage& ours, const Stage& peers)
{
    Figures figures;
    std::string problem;
    try {
        figures = measure(row, ours, peers);
    } catch (const std::exception& error) {
        problem = error.what();
    }
    std::vector<RowResult> results;
    for (const Claim& claim : row.claims) {
        RowResult& result = results.emplace_back(
            RowResult{.name = label(row, claim), .bound = boundText(claim.bound, Unit::nanoseconds), .error = problem});
        if (problem.empty()) {
            const orvan::bench::Judgement judgement = judge(figures, claim);
            result.repetitions = static_cast<int>(figures.ours.size());
            result.ours = spread(figures.ours, claim);
            result.peerName = row.peer.name;
            result.peer = spread(figures.peers, claim);
            result.ratio = judgement.ratio;
            result.shortBy = judgement.shortBy;
            result.verdict = judgement.verdict();
        }
    }
    return results;
}

int run(std::vector<std::string> arguments)
{
    using orvan::bench::takeOption;
    if (takeOption(arguments, "--help") || takeOption(arguments, "-h")) {
        std::cout << kHelp;
        return 0;
    }
    const bool list = takeOption(arguments, "--list");
    const Measure measured = takeOption(arguments, "--processor-time") ? Measure::processorTime : Measure::toPixels;
    const std::filesystem::path folder = QCoreApplication::applicationDirPath().toStdString();
    Programs programs{.desk = ORVAN_DESK, .peer = folder / "orvan-felt-peer", .formerDesk = {}};
    if (const auto against = orvan::bench::takeValue(arguments, "--against")) {
        programs.formerDesk = std::filesystem::absolute(*against);
    }
    const orvan::bench::ResultFiles resultFiles(arguments);
    if (const auto unknown = orvan::bench::unknownOption(arguments)) {
        std::cerr << "Unknown option " << *unknown << "\n\n" << kHelp;
        return 2;
    }
    const QTemporaryDir scratch(QStringLiteral("/var/tmp/orvan-felt-XXXXXX"));
    if (!scratch.isValid()) {
        throw std::runtime_error("no temporary folder can be made: " + scratch.errorString().toStdString());
    }
    const std::filesystem::path files = scratch.path().toStdString();
    Screen ourScreen(files), peerScreen(files);
    std::vector<Row> rows = makeRows(programs, ourScreen, files);
    std::erase_if(rows, [&](const Row& row) { return !orvan::bench::beginsWithAny(row.name, arguments); });
    if (list) {
        for (const Row& row : rows) {
            std::cout << row.name << '\n';
        }
        return 0;
    }
    Results run{.machine = orvan::bench::machineDescription()};
    std::cout << run.machine << '\n';
    std::size_t widest = 0;
    for (const Row& row : rows) {
        widest = std::max(widest, label(row, row.claims.back()).size());
    }
    orvan::bench::Table table(std::cout,
                              orvan::bench::rowHeads(measured == Measure::toPixels ? "from an input to the pixels"
                                                                                   : "processor time of an answer"),
                              widest);
    std::vector<std::string> failed;
    for (const Row& row : rows) {
        for (const RowResult& result :
             results(row, {ourScreen, files / "ours", measured}, {peerScreen, files / "peers", measured})) {
            printRow(table, result);
            run.rows.push_back(result);
            if (result.verdict == Verdict::fails) {
                failed.push_back(result.name);
            }
        }
    }
    resultFiles.finish(run);
    return orvan::bench::exitCode(failed);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}

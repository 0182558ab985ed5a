// orvan-felt: measures from an input to the pixels of the answer, from outside. ./bench --felt builds it and passes its
// arguments on.

#include "benchmarks/Bound.h"
#include "benchmarks/Machine.h"
#include "benchmarks/Table.h"
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
using orvan::bench::Unit;

constexpr const char* kHelp =
    "usage: ./bench --felt [--against DESK] [--processor-time] [--list] [NAME...]\n"
    "\n"
    "Works with the desk and with small programs of Qt's own widgets on a virtual X server, by keys and clicks, and\n"
    "prints how long the pixels of the answer take; medians and quartiles, measured in turn.\n"
    "Exits with 1 and names the rows that fall short of their bound by more than half.\n"
    "\n"
    "  NAME              only the rows whose names begin so, such as \"editor\"\n"
    "  --against DESK    another build of orvan-desk in place of the small programs, to see what a change has brought\n"
    "  --processor-time  what the programs themselves take, instead of the time to the pixels: for a machine that "
    "does\n"
    "                    much else meanwhile\n"
    "  --list            the names of all rows\n";

/// Samples that come first, to warm up, and do not count. An even number, because keys are typed and taken back.
constexpr int kWarmUp = 4;
/// A row that is nearer to its bound than this is measured once more before it is judged.
constexpr double kClose = 0.05;

/// The part of the figures that is less than the result, 0.5 for the median.
double percentile(std::vector<double> figures, double part)
{
    const auto at = figures.begin() + std::lround(static_cast<double>(figures.size() - 1) * part);
    std::nth_element(figures.begin(), at, figures.end());
    return *at;
}

struct Figures {
    std::vector<double> ours, peers;
};

double figure(const std::vector<double>& samples, const Claim& claim)
{
    return percentile(samples, claim.percentile99 ? 0.99 : 0.5);
}

orvan::bench::Judgement judge(const Figures& figures, const Claim& claim)
{
    return orvan::bench::judge(claim.bound, figure(figures.ours, claim), figure(figures.peers, claim));
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

std::string text(double nanoseconds)
{
    return orvan::bench::figureText(nanoseconds, Unit::nanoseconds);
}

std::string quartiles(const std::vector<double>& samples)
{
    return text(percentile(samples, 0.25)) + " to " + text(percentile(samples, 0.75));
}

std::string label(const Row& row, const Claim& claim)
{
    return row.name + (claim.percentile99 ? ", 99th percentile" : "");
}

/// Measures the row and prints its claims. Returns the names of those that fail.
std::vector<std::string> run(const Row& row, orvan::bench::Table& table, const Stage& ours, const Stage& peers)
{
    std::vector<std::string> failed;
    Figures figures;
    std::string problem;
    try {
        figures = measure(row, ours, peers);
    } catch (const std::exception& error) {
        problem = error.what();
    }
    for (const Claim& claim : row.claims) {
        const std::string bound = boundText(claim.bound, Unit::nanoseconds);
        if (!problem.empty()) {
            table.print({label(row, claim), "", "", "", "", "", bound, "FAILS: " + problem});
            failed.push_back(label(row, claim));
            continue;
        }
        const orvan::bench::Judgement judgement = judge(figures, claim);
        table.print({label(row, claim), text(figure(figures.ours, claim)), quartiles(figures.ours),
                     row.peer.name + " " + text(figure(figures.peers, claim)), quartiles(figures.peers),
                     orvan::bench::plainNumber(judgement.ratio), bound,
                     orvan::bench::kVerdictTexts[static_cast<std::size_t>(judgement.verdict())]});
        if (judgement.verdict() == orvan::bench::Verdict::fails) {
            failed.push_back(label(row, claim));
        }
    }
    return failed;
}

bool selected(const std::string& name, const std::vector<std::string>& beginnings)
{
    return beginnings.empty() || std::any_of(beginnings.begin(), beginnings.end(),
                                             [&](const std::string& each) { return name.starts_with(each); });
}

int run(std::vector<std::string> arguments)
{
    const auto take = [&](const char* option) { return std::erase(arguments, option) > 0; };
    if (take("--help") || take("-h")) {
        std::cout << kHelp;
        return 0;
    }
    const bool list = take("--list");
    const Measure measured = take("--processor-time") ? Measure::processorTime : Measure::toPixels;
    const std::filesystem::path folder = QCoreApplication::applicationDirPath().toStdString();
    Programs programs{.desk = ORVAN_DESK, .peer = folder / "orvan-felt-peer", .formerDesk = {}};
    if (const auto against = std::find(arguments.begin(), arguments.end(), "--against");
        against != arguments.end() && against + 1 != arguments.end()) {
        programs.formerDesk = std::filesystem::absolute(*(against + 1));
        arguments.erase(against, against + 2);
    }
    if (const auto unknown = std::find_if(arguments.begin(), arguments.end(),
                                          [](const std::string& argument) { return argument.starts_with("-"); });
        unknown != arguments.end()) {
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
    std::erase_if(rows, [&](const Row& row) { return !selected(row.name, arguments); });
    if (list) {
        for (const Row& row : rows) {
            std::cout << row.name << '\n';
        }
        return 0;
    }
    std::cout << orvan::bench::machineDescription() << '\n';
    std::size_t widest = 0;
    for (const Row& row : rows) {
        widest = std::max(widest, label(row, row.claims.back()).size());
    }
    orvan::bench::Table table(
        std::cout,
        {measured == Measure::toPixels ? "from an input to the pixels" : "processor time of an answer", "ours",
         "quartiles", "peer", "quartiles", "ratio", "bound", "verdict"},
        widest);
    std::vector<std::string> failed;
    for (const Row& row : rows) {
        for (const std::string& name :
             run(row, table, {ourScreen, files / "ours", measured}, {peerScreen, files / "peers", measured})) {
            failed.push_back(name);
        }
    }
    for (const std::string& name : failed) {
        std::cerr << "Fails: " << name << '\n';
    }
    return failed.empty() ? 0 : 1;
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

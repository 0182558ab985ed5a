#include "benchmarks/Comparison.h"

#include "benchmarks/Machine.h"
#include "benchmarks/Options.h"
#include "benchmarks/Results.h"
#include "benchmarks/Spread.h"
#include "benchmarks/Table.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <utility>

namespace orvan::bench {

namespace {

/// A row that is closer to its bound than by this factor is measured again, with so many times the repetitions.
constexpr double kClose = 1.1;
constexpr int kMoreRepetitions = 3;

/// Keeps the figures of the last run and prints nothing.
class SilentReporter final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override { last = runs.back(); }

    Run last;
};

double threadSeconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// The figures of several sides, which are measured in turn. If there are several repetitions, one more comes first, to
/// warm up, and does not count.
std::vector<Spread> measureInTurn(const std::vector<const Side*>& sides, int repetitions)
{
    std::vector<std::vector<double>> figures(sides.size());
    for (int round = repetitions > 1 ? 0 : 1; round <= repetitions; ++round) {
        for (std::size_t i = 0; i < sides.size(); ++i) {
            const double figure = sides[i]->repeat();
            if (round > 0) {
                figures[i].push_back(figure);
            }
        }
    }
    std::vector<Spread> spreads;
    std::transform(figures.begin(), figures.end(), std::back_inserter(spreads), spreadOf);
    return spreads;
}

bool isClose(const Judgement& judgement)
{
    return judgement.shortBy < kClose && judgement.shortBy > 1 / kClose;
}

RowResult measure(const Row& row)
{
    RowResult result{
        .name = row.name, .bound = boundText(row.bound, row.unit), .unit = row.unit, .repetitions = row.repetitions};
    try {
        const Sides sides = row.prepare();
        std::vector<const Side*> inTurn{&sides.ours};
        if (sides.peer) {
            inTurn.push_back(&*sides.peer);
            result.peerName = sides.peer->name;
        }
        const auto judgeFigures = [&] {
            const std::vector<Spread> figures = measureInTurn(inTurn, result.repetitions);
            result.ours = figures.front();
            result.peer = sides.peer ? std::optional(figures.back()) : std::nullopt;
            return judge(row.bound, figures.front().median, figures.back().median);
        };
        Judgement judgement = judgeFigures();
        if (isClose(judgement) && row.repetitions > 1) {
            result.repetitions *= kMoreRepetitions;
            judgement = judgeFigures();
        }
        result.ratio = judgement.ratio;
        result.shortBy = judgement.shortBy;
        result.verdict = judgement.verdict();
    } catch (const std::exception& error) {
        result.error = error.what();
    }
    return result;
}

/// Measures the row and prints it. Returns false if it fails.
bool runRow(const Row& row, Table& table, Results& results)
{
    const RowResult& result = results.rows.emplace_back(measure(row));
    printRow(table, result);
    return result.verdict != Verdict::fails;
}

GrowthResult measure(const Growth& growth)
{
    GrowthResult result{.name = growth.name, .unit = growth.unit};
    try {
        std::vector<Side> sides;
        std::transform(growth.sizes.begin(), growth.sizes.end(), std::back_inserter(sides), growth.prepare);
        std::vector<const Side*> inTurn;
        std::transform(sides.begin(), sides.end(), std::back_inserter(inTurn), [](const Side& side) { return &side; });
        const std::vector<Spread> figures = measureInTurn(inTurn, growth.repetitions);
        for (std::size_t i = 0; i < figures.size(); ++i) {
            result.figures.emplace_back(growth.sizes[i], figures[i]);
        }
    } catch (const std::exception& error) {
        result.error = error.what();
    }
    return result;
}

bool runGrowth(const Growth& growth, Table& table, Results& results)
{
    const GrowthResult& result = results.growths.emplace_back(measure(growth));
    if (!result.error.empty()) {
        table.print({result.name, "FAILS: " + result.error, "", ""});
        return false;
    }
    std::string figures;
    for (const auto& [size, spread] : result.figures) {
        figures.append(figures.empty() ? "" : ", ").append(figureText(spread.median, result.unit));
        figures.append(" at ").append(groupedNumber(size));
    }
    const auto& [least, first] = result.figures.front();
    const auto& [most, last] = result.figures.back();
    table.print({result.name, figures, plainNumber(last.median / first.median), groupedNumber(most / least)});
    return true;
}

/// The row's name and bound, because several rows may have the same name.
std::string label(const Row& row)
{
    return std::string(row.name).append(" (").append(boundText(row.bound, row.unit)).append(")");
}

std::string label(const Growth& growth)
{
    return growth.name;
}

template <class Item>
std::vector<std::string> runAll(const std::vector<const Item*>& items, const std::vector<std::string>& heads,
                                bool (*run)(const Item&, Table&, Results&), Results& results)
{
    std::size_t widest = 0;
    for (const Item* item : items) {
        widest = std::max(widest, item->name.size());
    }
    Table table(std::cout, heads, widest);
    std::vector<std::string> failed;
    for (const Item* item : items) {
        if (!run(*item, table, results)) {
            failed.push_back(label(*item));
        }
    }
    return failed;
}

} // namespace

Side timed(const std::string& name, const std::function<void(benchmark::State&)>& loop, Timing timing, double seconds)
{
    // Each repetition registers the benchmark again as the only one, with the number of iterations that the first
    // found.
    const auto iterations = std::make_shared<benchmark::IterationCount>(0);
    return {name, [=] {
                clearWideRegisters();
                benchmark::ClearRegisteredBenchmarks();
                benchmark::internal::Benchmark* const registered = benchmark::RegisterBenchmark(name.c_str(), loop);
                registered->Unit(benchmark::kNanosecond);
                if (timing == Timing::clock) {
                    registered->UseRealTime();
                } else if (timing == Timing::parts) {
                    registered->UseManualTime();
                }
                if (*iterations == 0) {
                    registered->MinTime(seconds);
                } else {
                    registered->Iterations(*iterations);
                }
                SilentReporter reporter;
                benchmark::RunSpecifiedBenchmarks(&reporter);
                if (reporter.last.error_occurred) {
                    throw std::runtime_error(reporter.last.error_message);
                }
                *iterations = reporter.last.iterations;
                return timing == Timing::thread ? reporter.last.GetAdjustedCPUTime()
                                                : reporter.last.GetAdjustedRealTime();
            }};
}

void timePart(benchmark::State& state, const std::function<void()>& part)
{
    const double begin = threadSeconds();
    part();
    state.SetIterationTime(threadSeconds() - begin);
}

bool Suite::selected(const std::string& name) const
{
    return beginsWithAny(name, beginnings_);
}

void Suite::list() const
{
    for (const Row& row : rows_) {
        std::cout << label(row) << '\n';
    }
    for (const Growth& growth : growths_) {
        std::cout << growth.name << " (--growth)\n";
    }
}

std::vector<std::string> Suite::runRows(Results& results) const
{
    std::vector<const Row*> chosen;
    for (const Row& row : rows_) {
        if (selected(row.name)) {
            chosen.push_back(&row);
        }
    }
    return runAll<Row>(chosen, rowHeads("path"), runRow, results);
}

std::vector<std::string> Suite::runGrowths(Results& results) const
{
    std::vector<const Growth*> chosen;
    for (const Growth& growth : growths_) {
        if (selected(growth.name)) {
            chosen.push_back(&growth);
        }
    }
    return runAll<Growth>(chosen, {"path", "figures", "grows", "while the size grows"}, runGrowth, results);
}

} // namespace orvan::bench

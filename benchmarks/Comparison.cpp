#include "benchmarks/Comparison.h"

#include "benchmarks/Machine.h"
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

double median(std::vector<double> figures)
{
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

/// The medians of several sides, which are measured in turn. If there are several repetitions, one more comes first, to
/// warm up, and does not count.
std::vector<double> mediansInTurn(const std::vector<const Side*>& sides, int repetitions)
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
    std::vector<double> medians;
    std::transform(figures.begin(), figures.end(), std::back_inserter(medians), median);
    return medians;
}

/// Measures the row and prints it. Returns false if it fails.
bool runRow(const Row& row, Table& table)
try {
    const Sides sides = row.prepare();
    std::vector<const Side*> inTurn{&sides.ours};
    if (sides.peer) {
        inTurn.push_back(&*sides.peer);
    }
    const std::vector<double> medians = mediansInTurn(inTurn, row.repetitions);
    const Judgement judgement = judge(row.bound, medians.front(), medians.back());
    table.print({row.name, figureText(medians.front(), row.unit),
                 sides.peer ? sides.peer->name + " " + figureText(medians.back(), row.unit) : "",
                 sides.peer ? plainNumber(judgement.ratio) : "", boundText(row.bound, row.unit), judgement.verdict()});
    return !judgement.fails();
} catch (const std::exception& error) {
    table.print({row.name, "", "", "", boundText(row.bound, row.unit), std::string("FAILS: ").append(error.what())});
    return false;
}

bool runGrowth(const Growth& growth, Table& table)
try {
    std::vector<Side> sides;
    std::transform(growth.sizes.begin(), growth.sizes.end(), std::back_inserter(sides), growth.prepare);
    std::vector<const Side*> inTurn;
    std::transform(sides.begin(), sides.end(), std::back_inserter(inTurn), [](const Side& side) { return &side; });
    const std::vector<double> medians = mediansInTurn(inTurn, growth.repetitions);
    std::string figures;
    for (std::size_t i = 0; i < medians.size(); ++i) {
        figures.append(i == 0 ? "" : ", ").append(figureText(medians[i], growth.unit));
        figures.append(" at ").append(groupedNumber(growth.sizes[i]));
    }
    const double times = static_cast<double>(growth.sizes.back()) / static_cast<double>(growth.sizes.front());
    table.print({growth.name, figures, plainNumber(medians.back() / medians.front()),
                 groupedNumber(static_cast<std::size_t>(times))});
    return true;
} catch (const std::exception& error) {
    table.print({growth.name, std::string("FAILS: ").append(error.what()), "", ""});
    return false;
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
                                bool (*run)(const Item&, Table&))
{
    std::size_t widest = 0;
    for (const Item* item : items) {
        widest = std::max(widest, item->name.size());
    }
    Table table(std::cout, heads, widest);
    std::vector<std::string> failed;
    for (const Item* item : items) {
        if (!run(*item, table)) {
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
    return beginnings_.empty() || std::any_of(beginnings_.begin(), beginnings_.end(),
                                              [&](const std::string& each) { return name.starts_with(each); });
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

std::vector<std::string> Suite::runRows() const
{
    std::vector<const Row*> chosen;
    for (const Row& row : rows_) {
        if (selected(row.name)) {
            chosen.push_back(&row);
        }
    }
    return runAll<Row>(chosen, {"path", "ours", "peer", "ratio", "bound", "verdict"}, runRow);
}

std::vector<std::string> Suite::runGrowths() const
{
    std::vector<const Growth*> chosen;
    for (const Growth& growth : growths_) {
        if (selected(growth.name)) {
            chosen.push_back(&growth);
        }
    }
    return runAll<Growth>(chosen, {"path", "figures", "grows", "while the size grows"}, runGrowth);
}

} // namespace orvan::bench

// T: long lists: what a million products take, and what it costs to move or delete one of many. Without a window, so
// that nothing but the library is measured; the last rows are those of a window.

#include "benchmarks/Allocations.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/Samples.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Windows.h"
#include "orvan/hosting/ProductViewWidget.h"

#include <QApplication>

#include <malloc.h>

#include <memory>
#include <string>

namespace orvan::bench {

namespace {

std::string sampleText(std::size_t count)
{
    return productsString(sampleProducts(count));
}

/// `ready` is called before each Show and is not measured.
Side show(
    const std::string& name, std::size_t count, void (*ready)() = [] {})
{
    return timed(
        name,
        [ready, text = sampleText(count)](benchmark::State& state) {
            for ([[maybe_unused]] auto _ : state) {
                ready();
                HeadlessProductView view(headlessHost().platform());
                timePart(state, [&] { view.Show(text); });
            }
        },
        Timing::parts);
}

/// Each list gets its memory from the system, as the first list of a program does. Otherwise the C library would put
/// the pieces of the former list together while the next one is made: a list would be charged for one that was freed,
/// and how much, differed from run to run by half.
Side firstShow(const std::string& name, std::size_t count)
{
    return show(name, count, [] { malloc_trim(0); });
}

/// A button of a view that shows `count` products and whose current row is in the middle. For each iteration, `ready`
/// is called first and is not measured.
Side clicking(std::size_t count, const char* button, const std::function<void(headless::GridDriver&)>& ready)
{
    const auto view = std::make_shared<HeadlessProductView>(headlessHost().platform());
    view->Show(sampleText(count));
    view->flexGrid().chooseRow(static_cast<std::int32_t>(count / 2));
    return timed(
        "",
        [=](benchmark::State& state) {
            for ([[maybe_unused]] auto _ : state) {
                ready(view->flexGrid());
                timePart(state, [&] { view->surface().button(button).click(); });
            }
        },
        Timing::parts);
}

Side moveDown(std::size_t count)
{
    return clicking(count, "cmdMoveDown", [](headless::GridDriver& /*grid*/) {});
}

Side deleteOne(std::size_t count)
{
    return clicking(count, "cmdDelete", [](headless::GridDriver& grid) {
        headlessHost().platform().messageBox().answer(ui::MessageResult::yes);
        grid.chooseRow(grid.rowCount() / 2);
    });
}

/// What the heap holds of each product beyond the bytes that it has in the products string, after `fill`.
double bytesBeyondText(std::size_t count, const std::function<void(const std::string&)>& fill)
{
    const std::string text = sampleText(count);
    const std::size_t before = heapInUse();
    fill(text);
    return static_cast<double>(heapInUse() - before - text.size()) / static_cast<double>(count);
}

Side bytesInMemory(std::size_t count)
{
    return {"", [count] {
                HeadlessProductView view(headlessHost().platform());
                return bytesBeyondText(count, [&](const std::string& text) { view.Show(text); });
            }};
}

/// The list in a window that has been painted and whose products string has been asked for, as a desk does to save it.
Side bytesInWindow(std::size_t count)
{
    return {"", [count] {
                ProductViewWidget view(windowHost().platform());
                view.resize(900, 700);
                view.show();
                view.Show(sampleText(1)); // so that what a window itself needs is not counted
                QApplication::processEvents();
                return bytesBeyondText(count, [&](const std::string& text) {
                    view.Show(text);
                    QApplication::processEvents();
                    requireSame(view.Products() == text, true, "the products string");
                });
            }};
}

} // namespace

void addLongList(Suite& suite)
{
    constexpr std::size_t kMillion = 1'000'000;
    suite.add(Row{"T Show, 1,000,000 beside 100,000", atMostTimes(11),
                  [] {
                      return Sides{firstShow("", kMillion), firstShow("100,000", 100'000)};
                  },
                  Unit::nanoseconds, 5});
    suite.add(Row{"T a product beyond its text, 1,000,000", atMost(550), [] { return Sides{bytesInMemory(kMillion)}; },
                  Unit::bytes, 1});
    suite.add(Row{"T a product beyond its text, in a window, 10,000", atMost(550),
                  [] { return Sides{bytesInWindow(10'000)}; }, Unit::bytes, 1});
    suite.add(Row{"T a move, 100,000", atMostTimes(0.25), [] {
                      return Sides{moveDown(100'000), show("Show", 100'000)};
                  }});
    suite.add(Row{"T a delete, 100,000", atMostTimes(0.25), [] {
                      return Sides{deleteOne(100'000), show("Show", 100'000)};
                  }});
    const std::vector<std::size_t> sizes = {10'000, 100'000, kMillion};
    suite.add(Growth{"T Show", [](std::size_t size) { return firstShow("", size); }, sizes, Unit::nanoseconds, 5});
    suite.add(Growth{"T a product beyond its text", bytesInMemory, sizes, Unit::bytes, 1});
    suite.add(Growth{"T a move", moveDown, sizes, Unit::nanoseconds, 5});
}

} // namespace orvan::bench

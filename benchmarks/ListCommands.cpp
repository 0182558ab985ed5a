// P: commands of the list view in its window. What is painted comes later, from the event loop, and is not measured.

#include "apps/orvan-desk/WatchedProducts.h"
#include "apps/orvan-desk/undo/QuoteHistory.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/Samples.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Windows.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/hosting/ProductViewWidget.h"

#include <QAction>
#include <QApplication>
#include <QTableView>

namespace orvan::bench {

namespace {

std::unique_ptr<ProductViewWidget> shownList(const std::vector<ProductValues>& products)
{
    auto view = std::make_unique<ProductViewWidget>(windowHost().platform());
    view->Show(productsString(products));
    return view;
}

/// The key is in the name of the last product alone, and not at its beginning: the list is searched three times, for
/// names and part numbers that begin with it, and for names that contain it.
Side find(std::size_t count)
{
    std::vector<ProductValues> products = sampleProducts(count);
    products.back().name = "No other name has \u00F8";
    return timed(
        "",
        [products](benchmark::State& state) {
            const auto view = shownList(products);
            auto& grid = *view->findChild<QTableView*>();
            for ([[maybe_unused]] auto _ : state) {
                pressKey(grid, Qt::Key_Home);
                timePart(state, [&] { pressKey(grid, Qt::Key_Ooblique, QStringLiteral("\u00F8")); });
                requireSame(view->currentProduct(), static_cast<int>(products.size()), "the row that was found");
            }
        },
        Timing::parts);
}

/// While it exists, the application's own host makes the desk's product managers, which note each change.
class DesksManagers {
public:
    DesksManagers() { desk::watchProducts(); }
    ~DesksManagers() { qtHost().components().registerClass(std::string(kProductMgrClassName), productMgrFactory()); }
    DesksManagers(const DesksManagers&) = delete;
    DesksManagers& operator=(const DesksManagers&) = delete;
};

/// The desk's own list view, whose manager notes each change.
std::unique_ptr<ProductViewWidget> desksList(std::size_t count)
{
    auto view = std::make_unique<ProductViewWidget>();
    view->Show(productsString(sampleProducts(count)));
    return view;
}

Side undo(std::size_t count)
{
    return timed(
        "",
        [count](benchmark::State& state) {
            const DesksManagers managers;
            const auto view = desksList(count);
            desk::QuoteHistory history(*view);
            history.restart();
            view->setCurrentProduct(static_cast<int>(count / 2));
            view->action(Command::moveDown)->trigger();
            QApplication::processEvents(); // the history learns of changes from the event loop
            requireSame(history.stack().count(), 1, "a step to undo");
            for ([[maybe_unused]] auto _ : state) {
                timePart(state, [&] { history.stack().canUndo() ? history.stack().undo() : history.stack().redo(); });
            }
        },
        Timing::parts);
}

Side show(std::size_t count)
{
    return timed(
        "Show",
        [count, text = productsString(sampleProducts(count))](benchmark::State& state) {
            const DesksManagers managers;
            const auto view = desksList(count);
            for ([[maybe_unused]] auto _ : state) {
                timePart(state, [&] { view->Show(text); });
            }
        },
        Timing::parts);
}

Side copyAll(std::size_t count)
{
    return timed(
        "",
        [count](benchmark::State& state) {
            const auto view = shownList(sampleProducts(count));
            view->setCurrentProduct(1);
            view->action(Command::selectAll)->trigger();
            for ([[maybe_unused]] auto _ : state) {
                timePart(state, [&] { view->action(Command::copy)->trigger(); });
            }
        },
        Timing::parts);
}

/// A manager that has just been filled: it has kept no lines of an earlier writing.
Side writeString(std::size_t count)
{
    return timed(
        "writing the string",
        [text = productsString(sampleProducts(count))](benchmark::State& state) {
            for ([[maybe_unused]] auto _ : state) {
                const auto view = shownList({});
                view->Show(text);
                timePart(state, [&] { benchmark::DoNotOptimize(view->Products()); });
            }
        },
        Timing::parts);
}

} // namespace

void addListCommands(Suite& suite)
{
    suite.add(Row{"P a key that finds, 100,000", atMost(5e6), [] { return Sides{find(100'000)}; }});
    suite.add(Row{"P undo or redo, 100,000", atMostTimes(2), [] { return Sides{undo(100'000), show(100'000)}; }});
    suite.add(Row{"P copy 10,000 rows", atMostTimes(3), [] { return Sides{copyAll(10'000), writeString(10'000)}; }});
}

} // namespace orvan::bench

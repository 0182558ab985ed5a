// D: a key in the quantity box of the editor's window. The event handlers are those that C measures; the rest of the
// time is Qt's own work on three line edits.

#include "benchmarks/Comparison.h"
#include "benchmarks/Samples.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Table.h"
#include "benchmarks/Windows.h"
#include "orvan/ui/TextEntry.h"

#include <QApplication>

namespace orvan::bench {

namespace {

/// Presses keys without returning to the event loop, so that nothing is painted.
Side keys(const std::string& name, const std::shared_ptr<QLineEdit*>& line)
{
    return timed(name, [line](benchmark::State& state) {
        KeyedLine keyed(**line, QStringLiteral("12"));
        for ([[maybe_unused]] auto _ : state) {
            keyed.press();
        }
    });
}

Side inForm(std::string name, std::size_t products)
{
    const auto line = std::make_shared<QLineEdit*>();
    const Side loop = keys(name, line);
    return {std::move(name), [=, manager = sampleManager(products)] {
                double figure = 0;
                editInWindow(manager, [&](ui::Form& form) {
                    *line = &widgetIn<QLineEdit, ui::TextBox>(form, "txtQty");
                    figure = loop.repeat();
                    const std::int64_t quantity = manager->GetProduct(1)->Qty().scaled() / Currency::kScale;
                    requireSame(quantity == 12 || quantity == 127, true, "the quantity is what was typed");
                });
                return figure;
            }};
}

Side bare()
{
    const auto window = std::make_shared<QWidget>();
    const auto line = std::make_shared<QLineEdit*>(new QLineEdit(window.get()));
    (*line)->setAlignment(Qt::AlignRight);
    window->resize(400, 100);
    const Side loop = keys("QLineEdit", line);
    return {"QLineEdit", [window, loop] {
                window->show();
                window->activateWindow();
                QApplication::processEvents();
                const double figure = loop.repeat();
                window->hide();
                return figure;
            }};
}

} // namespace

void addQtForm(Suite& suite)
{
    for (const std::size_t products : {1'000U, 100'000U}) {
        suite.add(Row{"D keystroke in the window, " + groupedNumber(products), atMostTimes(1.4), [=] {
                          return Sides{inForm("", products), bare()};
                      }});
    }
    suite.add(Row{"D keystroke in the window, 100,000 beside 1,000", atMostTimes(1.2), [] {
                      return Sides{inForm("", 100'000), inForm("1,000", 1'000)};
                  }});
    suite.add(Growth{"D keystroke in the window", [](std::size_t size) { return inForm("", size); }});
}

} // namespace orvan::bench

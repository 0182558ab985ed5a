// D: a key in the quantity box of the editor's window. The event handlers are those that C measures; the rest of the
// time is Qt's own work on three line edits.

#include "benchmarks/Comparison.h"
#include "benchmarks/Samples.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Table.h"
#include "benchmarks/Windows.h"
#include "orvan/ui/TextEntry.h"

#include <QApplication>
#include <QPlainTextEdit>

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

/// Runs a loop on a box in a window of its own, which is shown meanwhile.
Side inWindow(const std::shared_ptr<QWidget>& window, const Side& loop)
{
    return {loop.name, [window, loop] {
                window->show();
                window->activateWindow();
                QApplication::processEvents();
                const double figure = loop.repeat();
                window->hide();
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
    return inWindow(window, loop);
}

/// A note of 4,000 characters in lines, as a person writes them.
QString longNote()
{
    QString note;
    while (note.size() < 3'999) {
        note += note.size() % 80 == 79 ? u'\n' : note.size() % 7 == 6 ? u' ' : note.size() % 31 == 0 ? u'ü' : u'e';
    }
    return note;
}

/// Types a letter in the middle of the note and removes it, in turn.
Side noteKeys(const std::string& name, const std::shared_ptr<QPlainTextEdit*>& note)
{
    return timed(name, [note](benchmark::State& state) {
        QPlainTextEdit& box = **note;
        box.setFocus();
        QTextCursor cursor = box.textCursor();
        cursor.setPosition(2'000);
        box.setTextCursor(cursor);
        bool typed = false;
        for ([[maybe_unused]] auto _ : state) {
            typed = !typed;
            typed ? pressKey(box, Qt::Key_E, QStringLiteral("e"))
                  : pressKey(box, Qt::Key_Backspace, QStringLiteral("\b"));
        }
        if (typed) {
            pressKey(box, Qt::Key_Backspace, QStringLiteral("\b"));
        }
    });
}

Side noteInForm()
{
    const auto note = std::make_shared<QPlainTextEdit*>();
    const Side loop = noteKeys("", note);
    return {"", [=, manager = sampleManager(1'000)] {
                double figure = 0;
                manager->GetProduct(1)->SetNote(longNote().toStdString());
                editInWindow(manager, [&](ui::Form& form) {
                    *note = &widgetIn<QPlainTextEdit, ui::TextBox>(form, "txtNote");
                    figure = loop.repeat();
                    requireSame(manager->GetProduct(1)->Note(), longNote().toStdString(), "the note is as it was");
                });
                return figure;
            }};
}

Side bareNote()
{
    const auto window = std::make_shared<QWidget>();
    const auto note = std::make_shared<QPlainTextEdit*>(new QPlainTextEdit(longNote(), window.get()));
    (*note)->resize(350, 90);
    window->resize(400, 100);
    const Side loop = noteKeys("QPlainTextEdit", note);
    return inWindow(window, loop);
}

} // namespace

void addQtForm(Suite& suite)
{
    suite.add(Row{"D keystroke in a note of 4,000 characters", atMostTimes(2), [] {
                      return Sides{noteInForm(), bareNote()};
                  }});
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

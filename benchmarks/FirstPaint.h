// endAtFirstPaint: ends the small programs whose start is measured.
#pragma once

#include <QApplication>
#include <QEvent>

#include <cstdlib>
#include <functional>

namespace orvan::bench {

/// Runs the event loop until a window has been painted for the first time, then ends the program at once: with exit
/// status 0 if `asExpected` returns true, else with 1.
[[noreturn]] inline void endAtFirstPaint(const std::function<bool()>& asExpected)
{
    class Watch final : public QObject {
    public:
        bool painted = false;

        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            painted = painted || event->type() == QEvent::Paint;
            return false;
        }
    } watch;
    QCoreApplication::instance()->installEventFilter(&watch);
    while (!watch.painted) { // one paint event is enough: all widgets of a window are painted together
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    std::_Exit(asExpected() ? 0 : 1);
}

} // namespace orvan::bench

// endAtFirstPaint: for the small programs whose start is measured.
#pragma once

#include <QApplication>
#include <QEvent>

#include <cstdlib>
#include <functional>

namespace orvan::bench {

/// Runs the program until a window has been painted for the first time. Ends it there and then, with 0 where
/// `asExpected` finds what should have been painted.
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
    while (!watch.painted) { // a window's widgets are painted in one go
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    std::_Exit(asExpected() ? 0 : 1);
}

} // namespace orvan::bench

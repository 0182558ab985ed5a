// endAtFirstPaint: ends the small programs whose start is measured.
//
// Where the variable kTellMemory is set in their environment, they print how much memory they have taken until then:
// the bytes of their proportional set size, which counts a page that n programs share as an n-th of a page.
#pragma once

#include <QApplication>
#include <QEvent>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>

namespace orvan::bench {

inline constexpr const char* kTellMemory = "ORVAN_BENCH_TELL_MEMORY";

inline void tellMemory()
{
    std::ifstream totals("/proc/self/smaps_rollup");
    for (std::string word; totals >> word;) {
        if (word == "Pss:") {
            std::size_t kilobytes = 0;
            totals >> kilobytes;
            std::cout << kilobytes * 1024 << std::endl;
            return;
        }
    }
}

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
    if (std::getenv(kTellMemory) != nullptr) {
        tellMemory();
    }
    std::_Exit(asExpected() ? 0 : 1);
}

} // namespace orvan::bench

// orvan-bench-window: shows an empty Qt window and ends at its first paint.

#include "benchmarks/FirstPaint.h"

#include <QWidget>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(780, 560); // the size of the desk's window
    window.show();
    orvan::bench::endAtFirstPaint([] { return true; });
}

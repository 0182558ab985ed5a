// orvan-bench-window: an empty window of Qt's, up to its first paint.

#include "benchmarks/FirstPaint.h"

#include <QWidget>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(780, 560); // the desk's
    window.show();
    orvan::bench::endAtFirstPaint([] { return true; });
}

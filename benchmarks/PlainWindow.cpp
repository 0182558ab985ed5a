// orvan-bench-window [TEXT]: an empty window of Qt's, or one with a line of text, up to its first paint.

#include "benchmarks/FirstPaint.h"

#include <QLabel>

#include <memory>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const std::unique_ptr<QWidget> window(argc > 1 ? new QLabel(QString::fromUtf8(argv[1])) : new QWidget);
    window->resize(780, 560); // as the desk's
    window->show();
    orvan::bench::endAtFirstPaint([] { return true; });
}

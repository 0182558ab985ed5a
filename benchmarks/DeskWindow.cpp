// orvan-bench-desk: the desk up to the first paint of its window with a sample quote.

#include "apps/orvan-desk/CatalogueMenu.h"
#include "apps/orvan-desk/MainWindow.h"
#include "benchmarks/FirstPaint.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"

#include <QFile>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orvan-desk")); // from here on the same as apps/orvan-desk/main.cpp
    const QString products = orvan::desk::defaultCatalogueFile();
    orvan::setQtHostOptions(orvan::desk::lookUpProductsIn(products));
    orvan::desk::MainWindow window;
    window.useCatalogue(products, true);
    window.show();
    window.openSample(QStringLiteral("office-refit"));
    orvan::bench::endAtFirstPaint([&] {
        return window.findChild<orvan::ProductViewWidget*>()->TotalValue() > orvan::Currency() &&
               QFile::exists(products); // without the file this would be a first start, which makes it
    });
}

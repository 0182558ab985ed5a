// order-window: edits the order in a file, with a catalogue of the host's own. Usage: order-window [FILE]

#include "Goods.h"
#include "OrderWindow.h"

#include <orvan/hosting/QtHost.h>

#include <QApplication>
#include <QMessageBox>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    //! [options]
    orvan::HostOptions options;
    options.makeCatalogue = [] { return std::make_shared<GoodsLookUp>(); };
    options.editing = orvan::ui::EditingWay::careful;
    options.supportAddress = "orders@acme.example";
    orvan::setQtHostOptions(options); // before the first list is made
    //! [options]
    const QString file = QApplication::arguments().value(1, QStringLiteral("order.txt"));
    OrderWindow window(file);
    QString reason;
    if (!window.load(&reason)) {
        QMessageBox::critical(nullptr, file, reason);
        return 1;
    }
    window.resize(800, 480);
    window.show();
    return QApplication::exec();
}

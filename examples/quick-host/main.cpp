#include <orvan/core/ProductMgr.h>
#include <orvan/hosting/ProductViewWidget.h>
#include <orvan/hosting/QtHost.h>

#include <QApplication>
#include <QMessageBox>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const auto list =
        orvan::ui::createComponent<orvan::ProductMgr>(orvan::qtHost().components(), orvan::kProductMgrClassName);
    const auto lamp = list->AddNewProduct();
    lamp->SetName("Desk lamp");
    lamp->SetExtPrice(orvan::Currency::fromText("74.95"));

    orvan::ProductViewWidget view;
    QString reason;
    if (!view.load(QString::fromStdString(list->GetProductsString(orvan::kRecordSeparator, orvan::kFieldSeparator)),
                   &reason)) {
        QMessageBox::warning(nullptr, QStringLiteral("Products"), reason);
    }
    view.show();
    const int result = QApplication::exec();
    qInfo("%s", qPrintable(view.products().value_or(QString()))); // what a real host saves
    return result;
}

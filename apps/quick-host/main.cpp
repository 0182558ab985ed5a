#include <orvan/core/ProductMgr.h>
#include <orvan/hosting/ProductViewWidget.h>
#include <orvan/hosting/QtHost.h>

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const auto list =
        orvan::ui::createComponent<orvan::ProductMgr>(orvan::qtHost().components(), orvan::kProductMgrClassName);
    const auto lamp = list->AddNewProduct();
    lamp->SetName("Desk lamp");
    lamp->SetExtPrice(orvan::Currency::fromText("74.95"));

    orvan::ProductViewWidget view;
    view.Show(list->GetProductsString(orvan::kRecordSeparator, orvan::kFieldSeparator));
    view.show();
    return QApplication::exec();
}

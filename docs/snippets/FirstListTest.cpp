// What the guide's first chapter shows beside the examples: the list as a host's own code makes and reads it.

#include "tests/support/QtEnvironment.h"

#include <orvan/core/ProductMgr.h>
#include <orvan/hosting/ProductViewWidget.h>
#include <orvan/hosting/QtHost.h>

#include <gmock/gmock.h>

#include <QStringList>

namespace {

//! [make]
struct Position {
    std::string partNum, name;
    orvan::Currency unitPrice, quantity;
};

QString productsOf(const std::vector<Position>& positions)
{
    const auto list =
        orvan::ui::createComponent<orvan::ProductMgr>(orvan::qtHost().components(), orvan::kProductMgrClassName);
    for (const Position& position : positions) {
        const auto product = list->AddNewProduct();
        product->SetPartNum(position.partNum);
        product->SetName(position.name);
        product->SetUnitPrice(position.unitPrice);
        product->SetQty(position.quantity);
        product->SetExtPrice(position.unitPrice * position.quantity); // a record computes nothing itself
    }
    return QString::fromStdString(list->GetProductsString(orvan::kRecordSeparator, orvan::kFieldSeparator));
}
//! [make]

//! [read]
QStringList namesOf(const QString& products)
{
    const auto list =
        orvan::ui::createComponent<orvan::ProductMgr>(orvan::qtHost().components(), orvan::kProductMgrClassName);
    list->SetProductsString(products.toStdString(), orvan::kRecordSeparator, orvan::kFieldSeparator, false);
    QStringList names;
    for (std::int32_t position = 1; position <= list->GetProductCount(); ++position) { // positions count from 1
        names << QString::fromStdString(list->GetProduct(position)->Name());
    }
    return names;
}
//! [read]

TEST(FirstList, IsMadeShownAndReadBack)
{
    const orvan::Currency price = orvan::Currency::fromText("74.95");
    const QString products = productsOf({{"LMP-01", "Lamp", price, orvan::Currency::fromInteger(2)},
                                         {"~:\\", "Chair~", price, orvan::Currency::fromInteger(1)}});
    orvan::ProductViewWidget view;
    ASSERT_TRUE(view.load(products));
    EXPECT_EQ(view.totalText(), "$224.85");
    EXPECT_EQ(namesOf(view.products().value_or(QString())), QStringList({"Lamp", "Chair~"}));
}

TEST(FirstList, ADamagedListGivesAReason)
{
    orvan::ProductViewWidget view;
    QString reason;
    EXPECT_FALSE(view.load("this is no list", &reason));
    EXPECT_FALSE(reason.isEmpty());
}

} // namespace

// own-manager: a window in which a clerk edits an order and a superior approves it. The host's own manager holds the
// lines; the host reads them back to tell what the discounts cost. The order is saved when the window is closed.
// Usage: own-manager FILE

#include "OrderLines.h"

#include <orvan/hosting/ProductViewWidget.h>
#include <orvan/hosting/QtHost.h>

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QSaveFile>
#include <QVBoxLayout>

#include <optional>

namespace {

//! [read back]
/// What the customer saves, for each line: the quantity times the unit price, less the extended price.
orvan::Currency discountsOf(const QString& products)
{
    OrderLines lines;
    lines.SetProductsString(products.toStdString(), orvan::kRecordSeparator, orvan::kFieldSeparator, false);
    orvan::Currency sum;
    for (std::int32_t place = 1; place <= lines.GetProductCount(); ++place) {
        const auto line = lines.GetProduct(place);
        sum = sum + (line->Qty() * line->UnitPrice() - line->ExtPrice());
    }
    return sum;
}
//! [read back]

/// What the label below the list says. Amounts beyond the range raise an error, which must not leave a slot.
QString discountText(const orvan::ProductViewWidget& view)
{
    QString reason;
    const std::optional<QString> products = view.products(&reason);
    if (!products) {
        return reason;
    }
    try {
        orvan::ui::LocaleService& formats = orvan::qtHost().platform().locale();
        const std::string amount = formats.formatCurrency(discountsOf(*products), 2);
        return QObject::tr("The discounts are worth %1.").arg(QString::fromStdString(amount));
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}

bool save(const QString& file, const orvan::ProductViewWidget& view)
{
    const std::optional<QString> products = view.products();
    QSaveFile stored(file); // replaces the file as a whole, or not at all
    return products && stored.open(QIODevice::WriteOnly) && stored.write(products->toUtf8()) >= 0 && stored.commit();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    //! [options]
    orvan::HostOptions options;
    options.makeProductMgr = [] { return std::make_shared<OrderLines>(); };
    orvan::setQtHostOptions(options);
    //! [options]

    QWidget window;
    orvan::ProductViewWidget view;
    QLabel discounts;
    QCheckBox approved(QObject::tr("&Approved: the order can only be read"));
    QVBoxLayout layout(&window);
    layout.addWidget(&view, 1);
    layout.addWidget(&discounts);
    layout.addWidget(&approved);

    //! [read only]
    QObject::connect(&approved, &QCheckBox::toggled, &view, &orvan::ProductViewWidget::setReadOnly);
    //! [read only]
    const auto tell = [&] { discounts.setText(discountText(view)); };
    QObject::connect(&view, &orvan::ProductViewWidget::changed, &discounts, tell);

    QFile file(QApplication::arguments().value(1, QStringLiteral("order.tsv")));
    QString reason = QObject::tr("The file cannot be read.");
    if (!file.open(QIODevice::ReadOnly) || !view.load(QString::fromUtf8(file.readAll()), &reason)) {
        QMessageBox::critical(nullptr, file.fileName(), reason);
        return 1;
    }
    tell();
    window.resize(640, 360);
    window.show();
    QApplication::exec();
    // As often as the user wants, who would lose the order otherwise.
    while (view.Dirty() && !save(file.fileName(), view)) {
        if (QMessageBox::critical(nullptr, file.fileName(), QObject::tr("The order could not be saved."),
                                  QMessageBox::Retry | QMessageBox::Discard) == QMessageBox::Discard) {
            return 1;
        }
    }
    return 0;
}

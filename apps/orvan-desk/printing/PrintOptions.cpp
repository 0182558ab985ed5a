#include "PrintOptions.h"

#include "apps/orvan-desk/OutsideText.h"

#include "orvan/base/RuntimeError.h"

#include <QCoreApplication>
#include <QLocale>
#include <QRectF>
#include <QSizeF>

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvan::desk {

namespace {

constexpr std::string_view kSection = "DeskPrint";
constexpr double kUsualMargin = 15; // millimetres

/// The texts of the options, each with its key.
constexpr std::pair<std::string_view, QString PrintOptions::*> kTexts[] = {
    {"SellerName", &PrintOptions::sellerName},
    {"SellerAddress", &PrintOptions::sellerAddress},
    {"Logo", &PrintOptions::logoFile},
    {"ClosingText", &PrintOptions::closingText},
};

/// The names of the columns in the settings, in the order of PrintColumn.
constexpr const char* kColumnNames[] = {"Position", "PartNum",   "Name",      "Note",
                                        "Qty",      "UnitPrice", "DiscPrcnt", "ExtPrice"};
static_assert(std::size(kColumnNames) == std::size(kPrintColumns) &&
              std::size(kPrintColumns) == static_cast<std::size_t>(PrintColumn::extendedPrice) + 1);

/// "A4,portrait,15,15,15,15" or "210x297,landscape,...": size, orientation, left, top, right, bottom in millimetres
QString pageText(const QPageLayout& page)
{
    const QSizeF size = page.pageSize().size(QPageSize::Millimeter);
    const QMarginsF margins = page.margins(QPageLayout::Millimeter);
    QStringList parts{
        page.pageSize().id() == QPageSize::Custom ? QStringLiteral("%1x%2").arg(size.width()).arg(size.height())
                                                  : page.pageSize().key(),
        page.orientation() == QPageLayout::Landscape ? QStringLiteral("landscape") : QStringLiteral("portrait")};
    for (const double margin : {margins.left(), margins.top(), margins.right(), margins.bottom()}) {
        parts << QString::number(margin);
    }
    return parts.join(u',');
}

QPageSize pageSizeOf(const QString& text)
{
    const QStringList sides = text.split(u'x');
    const QSizeF size = sides.size() == 2 ? QSizeF(sides[0].toDouble(), sides[1].toDouble()) : QSizeF();
    constexpr double kLeast = 30, kMost = 5000; // millimetres
    if (size.width() >= kLeast && size.height() >= kLeast && size.width() <= kMost && size.height() <= kMost) {
        return QPageSize(size, QPageSize::Millimeter);
    }
    for (int id = 0; id <= QPageSize::LastPageSize; ++id) {
        if (id != QPageSize::Custom && QPageSize::key(static_cast<QPageSize::PageSizeId>(id)) == text) {
            return QPageSize(static_cast<QPageSize::PageSizeId>(id));
        }
    }
    return {};
}

/// An invalid page for a text that names none, or whose margins leave nothing of it.
QPageLayout pageOf(const QString& text)
{
    const QStringList parts = text.split(u',');
    const QPageSize size = pageSizeOf(parts[0]);
    if (parts.size() != 6 || !size.isValid()) {
        return {};
    }
    const auto orientation = parts[1] == u"landscape" ? QPageLayout::Landscape : QPageLayout::Portrait;
    double margins[4] = {};
    for (int i = 0; i < 4; ++i) {
        margins[i] = parts[i + 2].toDouble();
        if (!(margins[i] >= 0 && margins[i] <= 1000)) {
            return {};
        }
    }
    const QPageLayout page(size, orientation, {margins[0], margins[1], margins[2], margins[3]},
                           QPageLayout::Millimeter);
    const QRectF left = page.paintRect(QPageLayout::Millimeter);
    return left.width() > 10 && left.height() > 10 ? page : QPageLayout();
}

} // namespace

bool isTaxRate(Currency rate)
{
    return rate >= Currency() && rate <= Currency::fromInteger(100);
}

QPageLayout usualPage()
{
    const bool letter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageLayout(QPageSize(letter ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait,
                       QMarginsF(kUsualMargin, kUsualMargin, kUsualMargin, kUsualMargin), QPageLayout::Millimeter);
}

PrintOptions readPrintOptions(ui::SettingsStore& settings, QStringList& problems)
{
    const auto get = [&](std::string_view key) {
        return QString::fromStdString(settings.get(ui::kSettingsApplication, kSection, key));
    };
    PrintOptions options;
    for (const auto& [key, text] : kTexts) {
        options.*text = get(key);
    }
    const QStringList leftOut = get("LeftOut").split(u',');
    for (const PrintColumn column : kPrintColumns) {
        if (column != PrintColumn::name && leftOut.contains(QLatin1String(kColumnNames[static_cast<int>(column)]))) {
            options.leftOut.insert(column);
        }
    }
    options.showTax = get("Tax") == u"1";
    if (const QString rate = get("TaxRate"); !rate.isEmpty()) {
        try {
            options.taxRate = Currency::fromText(rate.toStdString());
        } catch (const RuntimeError&) {
            options.taxRate = Currency::fromInteger(-1);
        }
        if (!isTaxRate(options.taxRate)) {
            options.taxRate = {};
            options.showTax = false;
            problems << QCoreApplication::translate(
                            "PrintOptions",
                            "The tax rate in the settings, “%1”, is not 0 to 100 percent: no tax is printed.")
                            .arg(shortened(rate));
        }
    }
    const QString page = get("Page");
    options.page = page.isEmpty() ? usualPage() : pageOf(page);
    if (!options.page.isValid()) {
        options.page = usualPage();
        problems << QCoreApplication::translate("PrintOptions",
                                                "The page in the settings, “%1”, cannot be used: %2 is printed.")
                        .arg(shortened(page), options.page.pageSize().name());
    }
    return options;
}

void writePrintOptions(ui::SettingsStore& settings, const PrintOptions& options)
{
    const auto set = [&](std::string_view key, const QString& value) {
        settings.set(ui::kSettingsApplication, kSection, key, value.toStdString());
    };
    for (const auto& [key, text] : kTexts) {
        set(key, options.*text);
    }
    QStringList leftOut;
    for (const PrintColumn column : options.leftOut) {
        leftOut << QLatin1String(kColumnNames[static_cast<int>(column)]);
    }
    set("LeftOut", leftOut.join(u','));
    set("Tax", options.showTax ? QStringLiteral("1") : QStringLiteral("0"));
    set("TaxRate", QString::fromStdString(options.taxRate.toText()));
    set("Page", pageText(options.page));
}

} // namespace orvan::desk

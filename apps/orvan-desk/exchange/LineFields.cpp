#include "LineFields.h"

#include "orvan/components/catalogue/CatalogueColumns.h"
#include "orvan/core/modLocale.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace orvan::desk {

namespace {

struct FieldNames {
    const char* caption; ///< In English.
    std::vector<std::string_view> usual;
};

/// In the order of LineField. Where a price list has the same column, its names apply here, too.
const FieldNames& namesOf(LineField field)
{
    static const FieldNames names[] = {
        {QT_TRANSLATE_NOOP("LineFields", "Part#"), usualColumnNames(&CatalogueColumns::partNum)},
        {QT_TRANSLATE_NOOP("LineFields", "Product"), usualColumnNames(&CatalogueColumns::name)},
        {QT_TRANSLATE_NOOP("LineFields", "Qty"), {"qty", "quantity", "amount", "pieces", "count"}},
        {QT_TRANSLATE_NOOP("LineFields", "Unit Price"), usualColumnNames(&CatalogueColumns::unitPrice)},
        {QT_TRANSLATE_NOOP("LineFields", "Disc%"), {"disc", "discount", "discountpercent"}},
        {QT_TRANSLATE_NOOP("LineFields", "Ext Price"),
         {"extprice", "extendedprice", "lineprice", "linetotal", "totalprice"}},
        {QT_TRANSLATE_NOOP("LineFields", "Note"), usualColumnNames(&CatalogueColumns::note)},
        {QT_TRANSLATE_NOOP("LineFields", "Key"), usualColumnNames(&CatalogueColumns::key)},
    };
    static_assert(std::size(names) == kLineFields.size());
    return names[static_cast<std::size_t>(field)];
}

} // namespace

QString captionOf(LineField field)
{
    return QCoreApplication::translate("LineFields", namesOf(field).caption);
}

std::optional<LineField> fieldNamed(std::string_view column)
{
    const std::string name = simplifiedColumnName(column);
    for (const LineFieldRow& row : kLineFields) {
        const std::vector<std::string_view>& usual = namesOf(row.field).usual;
        if (std::find(usual.begin(), usual.end(), name) != usual.end() ||
            (!name.empty() && name == simplifiedColumnName(captionOf(row.field).toStdString()))) {
            return row.field;
        }
    }
    return std::nullopt;
}

LineFormat usualFormat(ui::LocaleService& locale)
{
    const bool comma = PrvInitLocale(locale).decimalSep == ",";
    return {.delimiter = comma ? ';' : ',', .decimalSeparator = comma ? ',' : '.'};
}

} // namespace orvan::desk

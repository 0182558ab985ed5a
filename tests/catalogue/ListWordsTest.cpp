// What is understood of single texts in price lists: prices, the names of columns, and encodings.

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueColumns.h"
#include "orvan/components/catalogue/PriceText.h"
#include "orvan/components/catalogue/lists/Encoding.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <sstream>

namespace orvan {
namespace {

using test::Example;
using test::forEachRow;

TEST(ListWordsTest, PricesHaveCurrenciesDashesAndWords)
{
    const auto read = [](const char* text, char decimal) -> std::string {
        const ListPrice price = readListPrice(text, decimal);
        switch (price.kind) {
        case ListPrice::Kind::none: return "none";
        case ListPrice::Kind::negative: return "negative";
        case ListPrice::Kind::unreadable: return "?";
        case ListPrice::Kind::amount: break;
        }
        return price.amount.toText();
    };
    // With a decimal comma, and with a decimal point.
    const Example rows[] = {
        {"1.234,50 €", "1234.5 ?"},
        {"€1,234.50", "? 1234.5"},
        {"EUR 12", "12 12"},
        {"12usd", "12 12"},
        {"US$ 12", "12 12"},
        {"R$12", "12 12"},
        {"12 zł", "12 12"},
        {"12 руб.", "12 12"},
        {"Fr. 12", "12 12"},
        {"Fr.12", "12 12"},
        {"12,-", "12 ?"},
        {"12.–", "? 12"},
        {"12,-- €", "12 ?"},
        {"1 234", "1234 1234"},
        {"1'234", "1234 1234"},
        {"\u00A012\u00A0", "12 12"},
        {"12 xyz", "? ?"},
        {"12 Stück", "? ?"},
        {"1 or 2", "? ?"},
        {"12 %", "? ?"},
        {"-12 €", "negative negative"},
        {"€ -12", "negative negative"},
        {"12-", "negative negative"},
        {"(12)", "negative negative"},
        {"\u221212", "negative negative"},
        {"--12", "? ?"},
        {"-12-", "? ?"},
        {"(12", "? ?"},
        {"-0", "0 0"},
        {"", "none none"},
        {"-", "none none"},
        {"—", "none none"},
        {"-,--", "none none"},
        {"n/a", "none none"},
        {"P.O.A.", "none none"},
        {"AUF ANFRAGE", "none none"},
        {"nous consulter", "none none"},
        {"bajo pedido", "none none"},
        {"su richiesta", "none none"},
        {"op aanvraag", "none none"},
        {"na zapytanie", "none none"},
        {"sob consulta", "none none"},
        {"по запросу", "none none"},
        {"Fiyat sorunuz", "none none"},
        {"#N/A!", "none none"},
        {"abc", "? ?"},
        {"0x12", "? ?"},
        {".", "? ?"},
    };
    forEachRow(rows,
               [&](const Example& row) { EXPECT_EQ(read(row.text, ',') + ' ' + read(row.text, '.'), row.result); });
}

TEST(ListWordsTest, ColumnsAreKnownByTheirNames)
{
    struct Row {
        const char* name;
        std::vector<std::string_view> header;
        const char*
            columns; ///< Numbers: item id, name, key, part number, barcode, unit price, note; then other prices.
        CatalogueImportOptions::ColumnNames given = {};
    };
    const Row rows[] = {
        {"German", {"Art.-Nr.", "Bezeichnung", "VK-Preis netto (EUR)", "Bemerkung", "EAN"}, "- 2 - 1 5 3 4"},
        {"French", {"RÉFÉRENCE", "DESIGNATION", "Prix HT €"}, "- 2 - 1 - 3 -"},
        {"Russian", {"№", "Артикул", "Наименование товара", "Цена, руб."}, "- 3 - 2 - 4 -"},
        {"Turkish capitals", {"STOK KODU", "ÜRÜN ADI", "BİRİM FİYATI"}, "- 2 - 1 - 3 -"},
        {"the description is the name", {"Part No", "Description", "Price"}, "- 2 - 1 - 3 -"},
        {"the description is the note", {"Part No", "Description", "Name", "Price"}, "- 3 - 1 - 4 2"},
        {"several prices", {"sku", "name", "List Price", "Unit Price", "Price"}, "- 2 - 1 - 4 - 5 3"},
        {"a code of its own", {"Code", "EAN code", "Name", "Price"}, "- 3 - 1 2 4 -"},
        {"given", {"a", "b", "price", "price"}, "- 2 - 1 - 4 -", {.name = "B", .partNum = "#1", .unitPrice = "#4"}},
        {"there is none", {"name", "sku", "price"}, "- 1 - - - 3 -", {.partNum = "-"}},
        {"a number beyond the last", {"name", "sku", "price"}, "- 1 - - - 3 -", {.partNum = "#4"}},
    };
    forEachRow(rows, [](const Row& row) {
        const CatalogueColumns columns = findColumns(row.header, row.given).columns;
        std::string found;
        for (const ColumnKind& kind : columnKinds()) {
            const std::optional<std::size_t> place = columns.*kind.place;
            found += (found.empty() ? "" : " ") + (place ? std::to_string(*place + 1) : "-");
        }
        for (const std::size_t other : columns.otherPrices) {
            found += ' ' + std::to_string(other + 1);
        }
        EXPECT_EQ(found, row.columns);
    });
}

TEST(ListWordsTest, EncodingsAreToldApart)
{
    struct Row {
        const char* name;
        std::string bytes;
        const char* encoding;
        const char* text;
    };
    const std::string filler(70'000, 'x'); // more than is read at a time
    const Row rows[] = {
        {"ASCII", "abc", "UTF-8", "abc"},
        {"UTF-8 behind much", filler + "ä", "UTF-8", nullptr},
        {"UTF-8 with a fault", "äöü\xFF", "UTF-8", nullptr},
        {"one letter behind much", filler + "\nT\xFCr;Haus\n", "windows-1252", nullptr},
        {"a euro sign alone", "Preis;5 \x80\n", "windows-1252", "Preis;5 €\n"},
        {"a mark, the other order", std::string("\xFE\xFF\0a\0\xE4", 6), "UTF-16", "aä"},
        {"no mark", std::string("a\0;\0\x16\x04\n\0", 8), "UTF-16LE", "a;Ж\n"},
        {"no mark, the other order", std::string("\0a\0;\x04\x16\0\n", 8), "UTF-16BE", "a;Ж\n"},
        {"half a character", std::string("\xFF\xFE\x61\0\x62", 5), "UTF-16", "a\uFFFD"},
    };
    forEachRow(rows, [](const Row& row) {
        std::istringstream input(row.bytes);
        const std::string encoding = foundEncoding(input);
        EXPECT_EQ(encoding, row.encoding);
        if (row.text) {
            const auto stream = utf8Stream(std::make_unique<std::istringstream>(row.bytes), encoding);
            const std::string text{std::istreambuf_iterator<char>(*stream), {}};
            EXPECT_EQ(text, row.text);
        }
    });
    // A character that the decoder cuts in two, at the border of what it reads at a time.
    const std::string cyrillic = [] {
        std::string bytes("a\0", 2);
        for (int at = 0; at < 100'000; ++at) {
            bytes.append("\x3D\xD8\x00\xDE", 4); // one character of two halves
        }
        return bytes;
    }();
    const auto stream = utf8Stream(std::make_unique<std::istringstream>(cyrillic), "UTF-16LE");
    const std::string text{std::istreambuf_iterator<char>(*stream), {}};
    EXPECT_EQ(text.size(), 400'001U);
    EXPECT_EQ(text.find("\uFFFD"), text.npos);
}

} // namespace
} // namespace orvan

// The dialects of price lists that docs/catalogue.md names: what is understood of each file in tests/catalogue/lists.

#include "orvan/components/catalogue/CatalogueFile.h"
#include "tests/catalogue/CatalogueFixture.h"

#ifndef ORVAN_LISTS
#error "the folder of the price lists"
#endif

namespace orvan {
namespace {

using test::forEachRow;
using test::raisedBy;
using ::testing::HasSubstr;
using Outcome = CatalogueImportResult::Outcome;

class ListDialectsTest : public test::CatalogueFixture {
protected:
    static std::filesystem::path list(const std::string& name) { return std::filesystem::path(ORVAN_LISTS) / name; }

    /// "name|part number|price|barcode|note" of each entry, in the order of the list.
    std::string imported()
    {
        std::string text;
        SqliteFile catalogue(file(), SqliteFile::Access::readOnly);
        SqliteStatement query(catalogue, "SELECT name || '|' || part_num || '|' || ifnull(unit_price / 10000.0, '-')"
                                         " || '|' || barcode || '|' || note FROM product ORDER BY item_id");
        for (SqliteRows rows = query.query(); rows.next();) {
            text.append(text.empty() ? "" : "; ").append(rows.text(0));
        }
        return text;
    }
};

std::string linesOf(const std::vector<RefusedRow>& rows)
{
    std::string text;
    for (const RefusedRow& row : rows) {
        text.append(text.empty() ? "" : ", ").append(std::to_string(row.line)).append(" ").append(row.reason.english());
    }
    return text;
}

TEST_F(ListDialectsTest, EachIsUnderstood)
{
    struct Row {
        const char* name;
        const char* imported;
        const char* form; ///< Encoding, delimiter and decimal separator; of a workbook its sheet.
        const char* skipped = "";
        std::uint64_t withoutPrice = 0;
        CatalogueImportOptions options = {};
    };
    // clang-format off
    const Row rows[] = {
        {"english.csv", "Bolt, M8|B-8|1234.5||steel; Bolt M9|B-9|-||; Bolt M10|B-10|2.0||", "UTF-8 , .",
         "4 nothing stands in it, 5 it repeats the names of the columns, 7 it is a row of totals", 1},
        {"german.csv", "Schlüssel|S-1|1234.5|4006381333931|; Türgriff|S-2|12.0||; Größe nach Maß|S-3|-||",
         "windows-1252 ; ,", "8 it is a row of totals", 1},
        {"french.csv", "Vis à tête fraisée|V-1|1234.5|3017620422003|; Écrou|V-2|0.05||; Clé|V-3|-||", "UTF-8 ; ,", "", 1},
        {"spanish.txt", "Tornillo pequeño|T-1|1234.5||; Tuerca|T-2|-||", "windows-1252 \t ,", "", 1},
        {"italian.csv", "Vite di qualità|V-1|12.5||; Dado|V-2|-||", "UTF-8 ; ,", "4 it is a row of totals", 1},
        {"dutch.csv", "Bout geïsoleerd|B-1|12.0||op voorraad; Moer|B-2|0.35||; Ring|B-3|-||", "UTF-16 ; ,", "", 1},
        {"polish.csv", "Śruba z łbem sześciokątnym|S-1|1234.5|5901234123457|; Nakrętka żółta|S-2|0.2||; Podkładka|S-3|-||",
         "windows-1250 ; ,", "5 it is a row of totals", 1},
        {"portuguese.csv", "Parafuso de cabeça|P-1|1234.5||; Porca|P-2|-||", "windows-1252 ; ,", "", 1},
        {"russian.csv", "Болт с шестигранной головкой|Б-1|1234.5|4601234567893|сталь; Гайка|Б-2|-||", "windows-1251 ; ,",
         "4 it is a row of totals", 1},
        {"russian-unmarked.txt", "Болт|Б-1|12.5||", "UTF-16LE \t ,"},
        {"turkish.csv", "Altıköşe başlı cıvata|C-1|1234.5|8690000000005|; Işık değişim şeridi|C-2|-||", "windows-1254 ; ,",
         "", 1},
        {"swiss.csv", "Kette|K-1|1234.5||; Kugel|K-2|12.0||; Kanne|K-3|5.0||", "UTF-8 ; ."},
        {"shop-export.csv", "Mug|M-1|9.9|4006381333931|A mug, white; Mug blue|M-2|-||", "UTF-8 , .", "", 1},
        {"shop-variants.csv", "Mug|M-1|9.9|012345678905|<p>white</p>; |M-2|10.9||", "UTF-8 , ."},
        {"stock.csv", "Nut|10001|0.25|5012345678900|; Ring|10002|1.5||", "UTF-8 | ."},
        {"order-export.tsv", "Wing nut|0017|3.1||zinc", "UTF-8 \t .",
         "2 nothing stands in it, 4 nothing stands in it, 5 it is a row of totals"},
        {"no-header.csv", "Bolt|B-1|1.5||; Nut|B-2|0.2||", "UTF-8 ; ,", "", 0,
         {.columns = {.name = "#2", .partNum = "#1", .unitPrice = "#3"}}},
#ifdef ORVAN_WORKBOOKS
        {"workbook.xlsx", "Türgriff|T-2|1000.0||two\nlines; Schlüssel|1001|19.99|4006381333931|; Datum|T-3|45000.0||; "
                          "Anteil|T-4|0.125||; Text|T-5|1234.5||ja; ohne Preis|T-6|-||", "Preise ,", "", 1},
#endif
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        const CatalogueImportResult result = importCatalogue(list(row.name), file(), row.options);
        const std::string form = result.sheet + result.encoding +
                                 (result.delimiter != 0 ? std::string(" ") + result.delimiter : std::string()) + ' ' +
                                 result.decimalSeparator;
        EXPECT_EQ(linesOf(result.refused), "");
        EXPECT_EQ(imported(), row.imported);
        EXPECT_EQ(form, row.form);
        EXPECT_EQ(linesOf(result.skipped), row.skipped);
        EXPECT_EQ(result.withoutPrice, row.withoutPrice);
    });
}

#ifdef ORVAN_WORKBOOKS
TEST_F(ListDialectsTest, HostileWorkbooksAreRefused)
{
    struct Row {
        const char* name;
        const char* reason;
    };
    const Row rows[] = {
        {"entities", "declares a document type"},
        {"bomb", "unpacks to more than 300 times its size"},
        {"huge-cell", "row 2 has more than a megabyte"},
        {"huge-tag", "a tag in its part \"xl/worksheets/sheet1.xml\" is too long"},
        {"deep", "nested too deeply"},
        {"wrong-text", "a cell refers to text 99 of 0"},
        {"wrong-place", "row 2 has a cell with the wrong place \"ABCD2\""},
        {"wrong-row", "row 2 has a cell with the wrong place \"A3\""},
        {"rows-back", "its row \"1\" comes after row 1"},
        {"wide", "more than 1000 columns"},
        {"cut-xml", "is no XML (unclosed token)"},
        {"no-sheet-part", "its part \"xl/worksheets/sheet7.xml\" is missing"},
        {"no-workbook", "it is no workbook (.xlsx)"},
        {"cut", "damaged or incomplete"},
        {"damaged", "is damaged (CRC error)"},
    };
    forEachRow(rows, [&](const Row& row) {
        const std::string name = std::string("hostile-") + row.name + ".xlsx";
        const test::Raised raised = raisedBy([&] { importCatalogue(list(name), file()); });
        EXPECT_EQ(raised.number, 321);
        EXPECT_THAT(raised.description, HasSubstr(name));
        EXPECT_THAT(raised.description, HasSubstr(row.reason));
    });
}
#endif

} // namespace
} // namespace orvan

#include "tests/catalogue/CatalogueFixture.h"

namespace orvan {
namespace {

using test::raisedBy;
using test::Rows;
using ::testing::HasSubstr;
using Outcome = CatalogueImportResult::Outcome;

class CatalogueImportTest : public test::CatalogueFixture {
protected:
    /// "name|part number|price" of each entry, in the order of their ids.
    std::string imported()
    {
        std::string text;
        SqliteFile catalogue(file(), SqliteFile::Access::readOnly);
        SqliteStatement query(catalogue, "SELECT name || '|' || part_num || '|' || ifnull(unit_price, '-')"
                                         " || '|' || key || '|' || note FROM product ORDER BY item_id");
        for (SqliteRows rows = query.query(); rows.next();) {
            text.append(text.empty() ? "" : "; ").append(rows.text(0));
        }
        return text;
    }
};

TEST_F(CatalogueImportTest, ReadsWhatProgramsWrite)
{
    const std::string head = "name,part number,price\n";
    const CatalogueImportOptions plain;
    const Rows<std::string, CatalogueImportOptions, const char*> rows = {
        {head + "Bolt,B-1,1.5\n", plain, "Bolt|B-1|15000||"},
        {"\xEF\xBB\xBF" + head + "Bolt,B-1,1.5", plain, "Bolt|B-1|15000||"}, // mark, no last line break
        {"name,part number,price\r\nBolt,B-1,2\r\n\r\n", plain, "Bolt|B-1|20000||"},
        {"name,part number,price\rBolt,B-1,2\r", plain, "Bolt|B-1|20000||"},
        {head + "\"Bolt, \"\"M8\"\"\r\nlong\",B-1,2\n", plain, "Bolt, \"M8\"\r\nlong|B-1|20000||"},
        {head + "5\" pipe,\"\",2\n", plain, "5\" pipe||20000||"},
        {"SKU\tProduct Name\tlist-price\nB-1\tBolt, long\t\n", plain, "Bolt, long|B-1|-||"},
        {"Part No.;Description;KEY;x;Title;Unit Price\nB;n;k;;Bolt;1.234,56\n", plain, "Bolt|B|12345600|k|n"},
        {head + "a,b,3\nc,d,\"1,234\"\ne,f,\"1,5\"\n", plain, "a|b|30000||; c|d|12340||; e|f|15000||"},
        {head + "a,b,-0.12345\nc,d,\"1,234\"\n", plain, "a|b|-1234||; c|d|12340000||"},
        {head + "a,b,1'234'567.8\nc,d,1 234.5\ne,f,+1\u00A0234\n", plain,
         "a|b|12345678000||; c|d|12345000||; e|f|12340000||"},
        {head + "a,b,\"0,125\"\nc,d,\"1,234\"\n", plain, "a|b|1250||; c|d|12340||"},
        {head + "a,b,\"1,234\"\n", {.decimalSeparator = ','}, "a|b|12340||"},
        {"Artikel|Nr|Preis\na,|b|1\n",
         {.delimiter = '|', .columns = {.name = "artikel", .partNum = "Nr", .unitPrice = "Preis"}},
         "a,|b|10000||"},
        {"id,name,part number,price\n 5 ,later,b,1\n-3,first,a,1\n", plain, "first|a|10000||; later|b|10000||"},
    };
    for (const auto& [content, options, expected] : rows) {
        EXPECT_EQ(import(content, options).outcome, Outcome::imported) << content;
        EXPECT_EQ(imported(), expected) << content;
    }
}

TEST_F(CatalogueImportTest, RefusedRowsAreNamedByTheirLineAndNothingIsImported)
{
    import("name,part number,price\nkept,K,1\n");
    const Rows<std::string, std::string> rows = {
        {"0,x,A,1.2.3\n", "2 the unit price \"1.2.3\" is no amount with a decimal point"}, // tells no separator
        {"1,\"two\nlines\",A,1.5\n", ""},
        {"2,x,B,1,5\n", "5 5 fields where the first line has 4"},
        {"\n1,x,C,1\n", "7 the item id \"1\" is in an earlier row, too"},
        {"2147483648,x,D,1\n", "8 the item id \"2147483648\" is no whole number of 32 bits"},
        {"5,,,1\n", "9 neither a name nor a part number"},
        {"7,\xFFx,F,1\n", "10 text that is not UTF-8"},
        {"8,\"x\"y,G,1\n", "11 text behind a closing quote"},
        {",x,H,1\n", "12 the item id \"\" is no whole number of 32 bits"},
        {"9,x,I,999999999999999999\n", "13 the unit price \"999999999999999999\" is no amount with a decimal point"},
        {"10,x,J,\"1,23\"\n", "14 the unit price \"1,23\" is no amount with a decimal point"},
        {"11,x,K,\"0,123.4\"\n", "15 the unit price \"0,123.4\" is no amount with a decimal point"},
        {"12,\"x", "16 a quote that is never closed"},
    };
    std::string content = "id,name,part number,price\n";
    std::vector<std::string> expected, refused;
    for (const auto& [text, reason] : rows) {
        content.append(text);
        if (!reason.empty()) {
            expected.push_back(reason);
        }
    }
    const CatalogueImportResult result = import(content, {.mostRefused = rows.size()});
    for (const RefusedRow& row : result.refused) {
        refused.push_back(std::to_string(row.line).append(" ").append(row.reason));
    }
    EXPECT_EQ(refused, expected);
    EXPECT_EQ(result.outcome, Outcome::refused);
    EXPECT_EQ(result.refusedCount, rows.size() - 1);
    EXPECT_EQ(result.rows, 1u);
    EXPECT_EQ(imported(), "kept|K|10000||");
    EXPECT_EQ(import("name,part number,price\n,,\n,,\n", {.mostRefused = 1}).refused.size(), 1u);
}

TEST_F(CatalogueImportTest, FilesThatCannotBeUnderstoodChangeNothing)
{
    import("name,part number,price\nkept,K,1\n");
    const Rows<std::string, CatalogueImportOptions, std::int32_t, const char*> rows = {
        {"", {}, 321, "does not begin"},
        {"name,part number,price\n", {}, 321, "no rows"},
        {"name,price\na,1\n", {}, 321, "no column for the part number"},
        {"name,part number,price\na,b,1\n", {.columns = {.note = "Text"}}, 321, "\"Text\""},
        {std::string("\xFF\xFEn\0", 4), {}, 321, "UTF-16"},
        {"name,part number,price\na,b,\"1" + std::string(2'000'000, ' '), {}, 321, "never closed"},
        {"name,part number,price\na,b,1\n", {.delimiter = '"'}, 5, ""},
    };
    for (const auto& [content, options, number, reason] : rows) {
        const test::Raised raised = raisedBy([&, &text = content, &how = options] { import(text, how); });
        EXPECT_EQ(raised.number, number) << reason;
        EXPECT_THAT(raised.description, HasSubstr(reason));
    }
    const CatalogueImportResult ambiguous = import("name,part number,price\na,b,2\na,b,\"1,234\"\n");
    EXPECT_EQ(ambiguous.outcome, Outcome::ambiguous);
    EXPECT_EQ(ambiguous.ambiguousPrice, "1,234");
    const auto list = directory / "list.csv";
    write("name,part number,price\na,b,1\n");
    EXPECT_EQ(raisedBy([&] { importCatalogue(directory / "no.csv", file()); }).number, 75);
    EXPECT_EQ(raisedBy([&] { importCatalogue(directory, file()); }).number, 75);
    EXPECT_EQ(raisedBy([&] { importCatalogue(list, directory / "no" / "goods"); }).number, 75);
    EXPECT_EQ(raisedBy([&] { importCatalogue(list, list); }).number, 321) << "a price list is never overwritten";
    EXPECT_EQ(imported(), "kept|K|10000||");
}

TEST_F(CatalogueImportTest, DesksReadOnWhileItRunsAndCancellingLeavesNothing)
{
    import("name,part number,price\nold,K,1\n");
    SqliteCatalogue desk({.file = file()});
    std::string content = "name,part number,price\n";
    for (int row = 0; row < 5000; ++row) {
        content.append("new,P,1.5\n");
    }
    write(content);
    int reading = 0, indexing = 0, cancelAt = 3;
    CatalogueImportOptions options;
    options.progress = [&](const CatalogueImportProgress& progress) {
        EXPECT_EQ(shown(desk.GetPartNumList("", true)), "1:K");
        EXPECT_EQ(shown(SqliteCatalogue({.file = file()}).GetPartNumList("K", false)), "1:K");
        EXPECT_LE(progress.bytesRead, progress.bytesTotal);
        EXPECT_EQ(progress.bytesTotal, content.size());
        if (reading == 1) {
            EXPECT_THAT(raisedBy([&] { importCatalogue(directory / "list.csv", file()); }).description,
                        HasSubstr("another import"));
        }
        ++(progress.indexesTotal > 0 ? indexing : reading);
        return reading + indexing != cancelAt;
    };
    EXPECT_EQ(import(content, options).outcome, Outcome::cancelled);
    EXPECT_EQ(shown(desk.GetPartNumList("", true)), "1:K");
    cancelAt = 0;
    std::filesystem::permissions(file(), std::filesystem::perms(0440));
    EXPECT_EQ(import(content, options).rows, 5000u);
    EXPECT_GT(indexing, 0);
    EXPECT_EQ(desk.GetPartNumList("p", false)->size(), 250u);
    EXPECT_EQ(std::filesystem::status(file()).permissions(), std::filesystem::perms(0440));
    options.progress = [&](const CatalogueImportProgress& progress) { return progress.indexesTotal == 0; };
    EXPECT_EQ(import(content, options).outcome, Outcome::cancelled);
    const std::filesystem::directory_iterator files(directory), none;
    EXPECT_EQ(std::distance(files, none), 2) << "nothing but the list and the catalogue";
}

} // namespace
} // namespace orvan

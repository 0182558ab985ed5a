#include "orvan/components/catalogue/CatalogueFile.h"
#include "tests/catalogue/CatalogueFixture.h"

namespace orvan {
namespace {

using test::forEachRow;
using test::raisedBy;
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
    struct Row {
        const char* name;
        std::string content;
        const char* imported;
        CatalogueImportOptions options = {};
    };
    // clang-format off
    const Row rows[] = {
        {"plain", head + "Bolt,B-1,1.5\n", "Bolt|B-1|15000||"},
        {"mark in front, no last line break", "\xEF\xBB\xBF" + head + "Bolt,B-1,1.5", "Bolt|B-1|15000||"},
        {"two line breaks each, an empty line", "name,part number,price\r\nBolt,B-1,2\r\n\r\n", "Bolt|B-1|20000||"},
        {"old line breaks", "name,part number,price\rBolt,B-1,2\r", "Bolt|B-1|20000||"},
        {"quotes", head + "\"Bolt, \"\"M8\"\"\r\nlong\",B-1,2\n", "Bolt, \"M8\"\r\nlong|B-1|20000||"},
        {"a quote within a field", head + "5\" pipe,\"\",2\n", "5\" pipe||20000||"},
        {"tabs", "SKU\tProduct Name\tlist-price\nB-1\tBolt, long\t\n", "Bolt, long|B-1|-||"},
        {"all columns, semicolons", "Part No.;Description;KEY;x;Title;Unit Price\nB;n;k;;Bolt;1.234,56\n",
         "Bolt|B|12345600|k|n"},
        {"a price that tells the decimal comma", head + "a,b,3\nc,d,\"1,234\"\ne,f,\"1,5\"\n",
         "a|b|30000||; c|d|12340||; e|f|15000||"},
        {"a price that tells the decimal point", head + "a,b,0.12345\nc,d,\"1,234\"\n", "a|b|1234||; c|d|12340000||"},
        {"other group separators", head + "a,b,1'234'567.8\nc,d,1 234.5\ne,f,+1\u00A0234\n",
         "a|b|12345678000||; c|d|12345000||; e|f|12340000||"},
        {"no group begins with 0", head + "a,b,\"0,125\"\nc,d,\"1,234\"\n", "a|b|1250||; c|d|12340||"},
        {"decimal comma given", head + "a,b,\"1,234\"\n", "a|b|12340||", {.decimalSeparator = ','}},
        {"columns given", "Artikel|Nr|Preis\na,|b|1\n", "a,|b|10000||",
         {.delimiter = '|', .columns = {.name = "artikel", .partNum = "Nr", .unitPrice = "Preis"}}},
        {"item ids", "id,name,part number,price\n 5 ,later,b,1\n-3,first,a,1\n", "first|a|10000||; later|b|10000||"},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        EXPECT_EQ(import(row.content, row.options).outcome, Outcome::imported);
        EXPECT_EQ(imported(), row.imported);
    });
}

TEST_F(CatalogueImportTest, RefusedRowsAreNamedByTheirLineAndNothingIsImported)
{
    import("name,part number,price\nkept,K,1\n");
    struct Line {
        std::string text, refused;
    };
    const Line lines[] = {
        {"0,x,A,1.2.3\n", "2 the unit price \"1.2.3\" is no amount with a decimal point"}, // tells no separator
        {"1,\"two\nlines\",A,1.5\n", ""},
        {"2,x,B,1,5\n", "5 5 fields where the header has 4"},
        {"\n1,x,C,1\n", "7 the item id \"1\" is in an earlier row, too"},
        {"3,x,D,-1\n", "8 the unit price \"-1\" is negative"},
        {"5,,,1\n", "9 neither a name nor a part number"},
        {"7,\xFFx,F,1\n", "10 text that is not UTF-8"},
        {"8,\"x\"y,G,1\n", "11 text behind a closing quote"},
        {"4,x,H,4.01,4.00638E+12\n", "12 5 fields where the header has 4"},
        {"9,x,I,999999999999999999\n", "13 the unit price \"999999999999999999\" is no amount with a decimal point"},
        {"10,x,J,\"1,23\"\n", "14 the unit price \"1,23\" is no amount with a decimal point"},
        {"11,x,K,\"0,123.4\"\n", "15 the unit price \"0,123.4\" is no amount with a decimal point"},
        {"12,x,L,-0.5\n", "16 the unit price \"-0.5\" is negative"},
        {"13,\"x", "17 a quote that is never closed"},
    };
    std::string content = "id,name,part number,price\n";
    std::vector<std::string> expected, refused;
    for (const Line& line : lines) {
        content.append(line.text);
        if (!line.refused.empty()) {
            expected.push_back(line.refused);
        }
    }
    const CatalogueImportResult result = import(content, {.mostRefused = std::size(lines), .encoding = "UTF-8"});
    for (const RefusedRow& row : result.refused) {
        refused.push_back(std::to_string(row.line).append(" ").append(row.reason.english()));
    }
    EXPECT_EQ(refused, expected);
    EXPECT_EQ(result.outcome, Outcome::refused);
    EXPECT_EQ(result.refusedCount, std::size(lines) - 1);
    EXPECT_EQ(result.rows, 1u);
    EXPECT_EQ(imported(), "kept|K|10000||");
    EXPECT_EQ(import("name,part number,price\n,,1\n,,1\n", {.mostRefused = 1}).refused.size(), 1u);
}

TEST_F(CatalogueImportTest, FilesThatCannotBeUnderstoodChangeNothing)
{
    import("name,part number,price\nkept,K,1\n");
    struct Row {
        const char* name;
        std::string content;
        CatalogueImportOptions options = {};
        std::int32_t number = 321;
        const char* reason;
    };
    // clang-format off
    const Row rows[] = {
        {.name = "empty", .content = "", .reason = "does not begin"},
        {.name = "head alone", .content = "name,part number,price\n", .reason = "no rows"},
        {.name = "a column is missing", .content = "name,price\na,1\n", .reason = "no column for the part number"},
        {.name = "a given column is missing", .content = "name,part number,price\na,b,1\n",
         .options = {.columns = {.note = "Text"}}, .reason = "\"Text\""},
        {.name = "no such encoding", .content = "name,part number,price\na,b,1\n", .options = {.encoding = "x-none"},
         .number = 5, .reason = "no encoding \"x-none\""},
        {.name = "an open quote and much behind it",
         .content = "name,part number,price\na,b,\"1" + std::string(2'000'000, ' '), .reason = "never closed"},
        {.name = "a quote as the delimiter", .content = "name,part number,price\na,b,1\n",
         .options = {.delimiter = '"'}, .number = 5, .reason = ""},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        const test::Raised raised = raisedBy([&] { import(row.content, row.options); });
        EXPECT_EQ(raised.number, row.number);
        EXPECT_THAT(raised.description, HasSubstr(row.reason));
    });
    const CatalogueImportResult ambiguous = import("name,part number,price\na,b,2\na,b,\"1,234\"\n");
    EXPECT_EQ(ambiguous.outcome, Outcome::ambiguous);
    EXPECT_EQ(ambiguous.ambiguousPrice, "1,234");
    const auto list = folder / "list.csv";
    write("name,part number,price\na,b,1\n");
    EXPECT_EQ(raisedBy([&] { importCatalogue(folder / "no.csv", file()); }).number, 75);
    EXPECT_EQ(raisedBy([&] { importCatalogue(folder.path(), file()); }).number, 75);
    EXPECT_EQ(raisedBy([&] { importCatalogue(list, folder / "no" / "goods"); }).number, 75);
    std::filesystem::create_symlink(folder / "loop", folder / "loop");
    EXPECT_THAT(raisedBy([&] { importCatalogue(list, folder / "loop"); }).description,
                HasSubstr("Too many levels of symbolic links"));
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
            EXPECT_THAT(raisedBy([&] { importCatalogue(folder / "list.csv", file()); }).description,
                        HasSubstr("another program is replacing it"));
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
    const std::filesystem::directory_iterator files(folder.path()), none;
    EXPECT_EQ(std::distance(files, none), 2) << "nothing but the list and the catalogue";
}

TEST_F(CatalogueImportTest, TheFormerCatalogueIsKeptWhereAHostAsksForIt)
{
    const std::string head = "name,part number,price\n";
    EXPECT_TRUE(import(head + "one,K,1\n", {.keepFormer = true}).former.empty()) << "there was none";
    EXPECT_TRUE(import(head + "two,K,1\n").former.empty());
    EXPECT_EQ(folder.count(), 2) << "the list and the catalogue";
    const CatalogueImportResult third = import(head + "three,K,1\n", {.sourceName = "third", .keepFormer = true});
    EXPECT_EQ(third.former, folder / "goods.catalogue.former");
    EXPECT_EQ(imported(), "three|K|10000||");
    SqliteFile former = openCatalogue(third.former), present = openCatalogue(file());
    EXPECT_EQ(catalogueOrigin(former).source, "list.csv");
    EXPECT_EQ(catalogueOrigin(former).entries, 1);
    EXPECT_EQ(catalogueOrigin(present).source, "third");
    EXPECT_EQ(import(head + "bad,K,x\n", {.keepFormer = true}).outcome, Outcome::refused);
    EXPECT_EQ(imported(), "three|K|10000||");
    EXPECT_EQ(catalogueOrigin(former).source, "list.csv");

    std::filesystem::remove(third.former);
    std::filesystem::resize_file(file(), 0); // an empty file is no catalogue, and nobody wants it back
    EXPECT_TRUE(import(head + "four,K,1\n", {.keepFormer = true}).former.empty());
    EXPECT_EQ(folder.count(), 2);
}

} // namespace
} // namespace orvan

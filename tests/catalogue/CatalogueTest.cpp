#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/PageChecksums.h"
#include "tests/catalogue/CatalogueFixture.h"

#include <sys/stat.h>

namespace orvan {
namespace {

using test::forEachRow;
using test::raisedBy;
using ::testing::HasSubstr;

class CatalogueTest : public test::CatalogueFixture {
protected:
    /// Names of the entries 1, 2, 3 ...; each is a part number, too.
    void makeCatalogue(const std::vector<std::string>& names)
    {
        std::string content = "name\tpart number\tprice\n";
        for (const std::string& name : names) {
            std::string quoted = "\"";
            for (const char c : name) {
                quoted.append(c == '"' ? 2 : 1, c);
            }
            content.append(quoted).append("\"\t").append(quoted).append("\"\t1.50\n");
        }
        std::filesystem::remove(file()); // so that the numbers begin anew
        ASSERT_EQ(import(content).rows, names.size());
    }
};

TEST_F(CatalogueTest, MatchesBeginningsWithoutRegardToCaseAndCompletesThem)
{
    struct Row {
        std::vector<std::string> names;
        const char *text, *expected;
    };
    const Row rows[] = {
        {{"bolt", "Bolt", "BOLT M8", "Nut"}, "", "none"},
        {{"bolt", "Bolt", "BOLT M8", "Nut"}, "x", "none"},
        {{"bolt", "Bolt", "BOLT M8", "Nut"}, "bolt m9", "none"},
        {{"bolt", "Bolt", "BOLT M8", "Nut"}, "Bo", "1:bolt 2:Bolt 3:BOLT M8"}, // the catalogue's spelling
        {{"BOLT M8", "bolT m10"}, "bOl", "2:bolT m10 1:BOLT M8"},
        {{"abd", "ABC", "AB", "ab", "AB"}, "AB", "3:AB 5:AB 4:ab 2:ABC 1:abd"}, // full matches first, spelled so first
        {{"zoo", "Zoë", "zo", "zoé"}, "ZO", "3:zo 4:zoé 2:Zoë 1:zoo"},          // a language's order
        {{"Mountain-500 Black"}, "mountain-500 bl", "1:Mountain-500 Black"},
        {{"Straße 5"}, "STRAS", "1:STRASse 5"}, // ends within a folding
        {{"Straße 5", "STRASSE 4"}, "strass", "2:STRASSE 4 1:Straße 5"},
        {{"STRASSE"}, "straß", "1:straßE"}, // the typed text has fewer characters
        {{"ﬁsh", "Fist"}, "F", "1:Fish 2:Fist"},
        {{"ΟΔΟΣ 1", "οδος 2"}, "οδοσ", "1:ΟΔΟΣ 1 2:οδος 2"}, // both forms of the small sigma
        {{"İstanbul", "ISTANBUL", "ısı"}, "is", "2:ISTANBUL 1:İstanbul 3:ısı"},
        {{"İstanbul"}, "i", "1:i\u0307stanbul"},
        {{"Étagère"}, "étag", "1:Étagère"},
        {{"100% wool", "100 pieces"}, "100%", "1:100% wool 2:100 pieces"},
        {{"a_b", "axb"}, "a_", "1:a_b"},
        {{"O'Neill", "O\"Neill", "O\\Neill"}, "o'", "1:O'Neill"},
        {{"O'Neill", "O\"Neill", "O\\Neill"}, "o\"", "2:O\"Neill"},
        {{"O'Neill", "O\"Neill", "O\\Neill"}, "o\\", "3:O\\Neill"},
        {{"\U00010400x", "\U0010FFFFy"}, "\U00010428", "1:\U00010400x"}, // beyond the first 65,536 characters
        {{"\U00010400x", "\U0010FFFFy"}, "\U0010FFFF", "2:\U0010FFFFy"},
    };
    forEachRow(rows, [&](const Row& row) {
        makeCatalogue(row.names);
        SqliteCatalogue catalogue({.file = file()});
        EXPECT_EQ(shown(catalogue.GetProductNameList(row.text, false)), row.expected);
        EXPECT_EQ(shown(catalogue.GetPartNumList(row.text, false)), row.expected);
    });
}

TEST_F(CatalogueTest, AClassicHostsCompletionBeginsAsItWasTyped)
{
    makeCatalogue({"Bolt M8", "bolt m10"});
    SqliteCatalogue catalogue({.file = file(), .completionAsTyped = true});
    EXPECT_EQ(shown(catalogue.GetProductNameList("BOL", false)), "2:BOLt m10 1:Bolt M8");
    EXPECT_EQ(shown(catalogue.GetProductNameList("bolt m8", false)), "1:bolt m8");
}

// Therefore the length of a completion is never negative.
TEST_F(CatalogueTest, FirstRowBeginsWithWhateverOfItWasTyped)
{
    const std::vector<std::string> names = {"Großmaß", "ﬃ ﬀ ﬁ",    "ŉ'n ǰ ΐ ẖ", "ΑΣΣς", "İIıi",
                                            "և ﬔ ẞß",  "e\u0301É", "Ǆ Ǆ ǅ",     "ᾳᾼ ᾲ", "Ꭰꭰ K Å"};
    makeCatalogue(names);
    SqliteCatalogue catalogue({.file = file()});
    for (const std::string& name : names) {
        const std::string folded = foldCase(name);
        for (const std::string& text : {name, folded}) {
            for (std::size_t count = 1; count <= characterCount(text); ++count) {
                const std::string typed(firstCharacters(text, count));
                const LookUpList rows = catalogue.GetProductNameList(typed, false);
                const std::string first = rows ? rows->front().text : "no row";
                EXPECT_EQ(foldCase(firstCharacters(first, count)), foldCase(typed)) << first;
            }
        }
    }
}

TEST_F(CatalogueTest, ListsAreLimitedAndTheWholeOneLeavesEmptyTextsOut)
{
    import("name,part number,price\nnut,,1\nBolt,P,2\n,Q,3\nbolt,R,4\nanchor,S,5\n");
    struct Row {
        const char* name;
        std::size_t mostMatches, mostListed;
        const char *matches, *listed;
    };
    const Row rows[] = {
        {"all", 10, 10, "4:bolt 2:Bolt", "5:anchor 4:bolt 2:Bolt 1:nut"},
        {"some", 1, 2, "4:bolt", "5:anchor 4:bolt"},
        {"none", 0, 0, "none", "none"},
    };
    forEachRow(rows, [&](const Row& row) {
        SqliteCatalogue catalogue({.file = file(), .mostMatches = row.mostMatches, .mostListed = row.mostListed});
        EXPECT_EQ(shown(catalogue.GetProductNameList("B", false)), row.matches);
        EXPECT_EQ(shown(catalogue.GetProductNameList("B", true)), row.listed);
    });
}

TEST_F(CatalogueTest, CurrentEntryHandsOverWhatTheFileHolds)
{
    import("id,name,key,part number,price,note\n7,Bolt,K,B-1,12.3456,n\n-8,Nut,,N-1,,\n9,Old,,O,1,\n");
    SqliteFile(file(), SqliteFile::Access::create).run("UPDATE product SET unit_price = '3,50' WHERE item_id = 9");
    SqliteCatalogue catalogue({.file = file()});
    EXPECT_TRUE(catalogue.IsEOF());
    EXPECT_EQ(test::errorOf([&] { catalogue.GetFieldValue(3); }), ErrorNumber::objectNotSet);
    const std::string none;
    struct Row {
        std::int32_t name; // the item id
        std::vector<LookUpValue> values;
    };
    const Row rows[] = {
        {7, {std::int64_t{7}, "bolt", "b-1", "Bolt", "K", "B-1", Currency::fromScaled(123456), "n"}},
        {-8, {std::int64_t{-8}, "nut", "n-1", "Nut", none, "N-1", std::monostate(), none}},
        {9, {std::int64_t{9}, "old", "o", "Old", none, "O", "3,50", none}},
    };
    forEachRow(rows, [&](const Row& row) {
        catalogue.SeekItem(row.name);
        EXPECT_FALSE(catalogue.IsEOF());
        for (std::size_t column = 0; column < row.values.size(); ++column) {
            EXPECT_TRUE(catalogue.GetFieldValue(static_cast<std::int32_t>(column)) == row.values[column]) << column;
        }
    });
    EXPECT_EQ(test::errorOf([&] { catalogue.GetFieldValue(8); }), ErrorNumber::subscriptOutOfRange);
    catalogue.SeekItem(10);
    EXPECT_TRUE(catalogue.IsEOF());
}

TEST_F(CatalogueTest, AFileThatCannotBeUsedIsReportedOnceAndTheEditorGoesOn)
{
    struct Row {
        const char* name;
        std::function<void(const std::filesystem::path&)> spoil;
        std::int32_t number;
        const char* reason;
    };
    const auto runs = [](const char* sql) {
        return [sql](const auto& path) { SqliteFile(path, SqliteFile::Access::create).run(sql); };
    };
    // clang-format off
    const Row rows[] = {
        {"removed", [](const auto& path) { std::filesystem::remove(path); }, 75, "No such file"},
        {"a folder in its place",
         [](const auto& path) { std::filesystem::remove(path), std::filesystem::create_directory(path); },
         75, "it is a folder"},
        {"a pipe in its place",
         [](const auto& path) { std::filesystem::remove(path), ::mkfifo(path.c_str(), 0600); }, 75, "it is a pipe"},
        {"a link to itself",
         [](const auto& path) { std::filesystem::remove(path), std::filesystem::create_symlink(path, path); },
         75, "Too many levels of symbolic links"},
        {"cut off", [](const auto& path) { std::filesystem::resize_file(path, 9000); }, 321, "it is damaged"},
        {"a price list", [](const auto& path) { std::ofstream(path) << "name,price\n" << std::string(2000, 'x'); },
         321, "no catalogue"},
        {"another program's", runs("PRAGMA application_id = 1"), 321, "no catalogue"},
        {"of a later version", runs("PRAGMA user_version = 99"), 321, "newer version"},
        {"without a table", runs("DROP TABLE name_start"), 321, "no such table: name_start"},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        std::filesystem::remove_all(file());
        makeCatalogue({"Bolt"});
        std::vector<std::string> told;
        const auto create =
            catalogueFactory({.file = file(), .report = [&](const UserText& text) { told.push_back(text.english()); }});
        const auto openBefore = std::dynamic_pointer_cast<ProductLkpMgr>(create());
        openBefore->SeekItem(1);
        EXPECT_TRUE(openBefore->summary(1) && !openBefore->summary(99)) << "what the list that drops down shows";
        EXPECT_EQ(openBefore->mostMatches(), 250U);
        EXPECT_FALSE(openBefore->IsEOF()) << "still the entry that was sought";
        row.spoil(file());
        const test::Raised raised = raisedBy([&] { SqliteCatalogue({.file = file()}); });
        EXPECT_EQ(raised.number, row.number);
        EXPECT_THAT(raised.description, testing::AllOf(HasSubstr(file().string()), HasSubstr(row.reason)));
        for (int session = 0; session < 2; ++session) {
            const auto catalogue = std::dynamic_pointer_cast<ProductLkpMgr>(create());
            EXPECT_EQ(shown(catalogue->GetProductNameList("", true)), "none");
            catalogue->SeekItem(1);
            EXPECT_TRUE(catalogue->IsEOF());
        }
        // A session that has the file open keeps a removed one; any other state of it is found.
        std::error_code error;
        const bool gone = !std::filesystem::exists(file(), error);
        EXPECT_EQ(shown(openBefore->GetPartNumList("b", false)), gone ? "1:Bolt" : "none");
        EXPECT_EQ(told, std::vector<std::string>{raised.description});
    });
}

TEST_F(CatalogueTest, DamageThatASearchMeetsIsReportedAndGivesNoEntries)
{
    makeCatalogue({"Bolt"});
    {
        constexpr int kPage = kCheckedPage; // the first one holds the structure
        std::fstream stream(file(), std::ios::in | std::ios::out | std::ios::binary);
        stream.seekp(kPage) << std::string(std::filesystem::file_size(file()) - kPage, 'x');
    }
    std::vector<std::string> told;
    const auto create =
        catalogueFactory({.file = file(), .report = [&](const UserText& text) { told.push_back(text.english()); }});
    const auto catalogue = std::dynamic_pointer_cast<ProductLkpMgr>(create());
    EXPECT_EQ(shown(catalogue->GetProductNameList("B", false)), "none");
    catalogue->SeekItem(1);
    EXPECT_TRUE(catalogue->IsEOF());
    EXPECT_THAT(told, testing::ElementsAre(HasSubstr("it is damaged")));
}

TEST_F(CatalogueTest, ALockedFileIsReportedWithoutWaiting)
{
    makeCatalogue({"Bolt"});
    SqliteFile other(file(), SqliteFile::Access::create);
    other.run("BEGIN EXCLUSIVE");
    const test::Raised raised = raisedBy([&] { SqliteCatalogue({.file = file()}); });
    EXPECT_EQ(raised.number, 75);
    EXPECT_THAT(raised.description, HasSubstr("locked"));
    other.run("ROLLBACK");
    EXPECT_EQ(shown(SqliteCatalogue({.file = file()}).GetPartNumList("B", false)), "1:Bolt");
}

} // namespace
} // namespace orvan

// A catalogue is replaced, overwritten, upgraded and damaged while it is used.

#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/PageChecksums.h"
#include "tests/catalogue/CatalogueFixture.h"
#include "tests/catalogue/FirstForm.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <random>
#include <thread>

namespace orvan {
namespace {

using test::forEachRow;
using test::raisedBy;
using ::testing::HasSubstr;

class VersionsTest : public test::CatalogueFixture {
protected:
    std::string read(const std::filesystem::path& path) const
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    static std::string text(SqliteCatalogue& catalogue, LookUpColumn column)
    {
        const LookUpValue value = catalogue.GetFieldValue(static_cast<std::int32_t>(column));
        const auto* const currency = std::get_if<Currency>(&value);
        return currency ? currency->toText() : std::get<std::string>(value);
    }
    /// "number:name" of each entry, in the order of the numbers.
    std::string numbers() const
    {
        SqliteFile opened = openCatalogue(file());
        SqliteStatement query(opened, "SELECT group_concat(item_id || ':' || name, ' ')"
                                      " FROM (SELECT * FROM product ORDER BY item_id)");
        SqliteRows rows = query.query();
        return rows.next() ? std::string(rows.text(0)) : std::string();
    }
};

TEST_F(VersionsTest, AnEntryKeepsItsNumberFromImportToImport)
{
    struct Row {
        const char* name;
        std::vector<std::string> lists;
        const char* numbers;
    };
    const std::string parts = "name,part number,price\n", ids = "id,name,part number,price\n";
    // clang-format off
    const Row rows[] = {
        {"another order", {parts + "a,A,1\nb,B,1\nc,C,1\n", parts + "c,C,1\na,A,1\nb,B,1\n"}, "1:a 2:b 3:c"},
        {"other names", {parts + "a,A,1\nb,B,1\n", parts + "bb,B,1\naa,A,1\n"}, "1:aa 2:bb"},
        {"blanks", {parts + "a,A,1\nb,B,1\n", parts + "b, B ,1\na,A ,1\n"}, "1:a 2:b"},
        {"new ones get new numbers", {parts + "a,A,1\nb,B,1\n", parts + "x,X,1\nb,B,1\n"}, "2:b 3:x"},
        {"a number is not used again", {parts + "a,A,1\nb,B,1\n", parts + "a,A,1\n", parts + "c,C,1\na,A,1\n"},
         "1:a 3:c"},
        {"what was missing comes back", {parts + "a,A,1\nb,B,1\n", parts + "a,A,1\n", parts + "c,C,1\n",
                                         parts + "b,B,1\na,A,1\n"}, "1:a 2:b"},
        {"by name, without a part number", {parts + "a,,1\nb,,1\n", parts + "b,,1\na,,1\n"}, "1:a 2:b"},
        {"a name is no part number", {parts + "a,x,1\n", parts + "x,,1\n"}, "2:x"},
        {"the same part number", {parts + "a,S,1\nb,S,1\nc,C,1\n", parts + "c,C,1\nb,S,1\na,S,1\nd,S,1\n"},
         "1:a 2:b 3:c 4:d"},
        {"everything the same", {parts + "a,S,1\na,S,2\n", parts + "a,S,1\na,S,2\na,S,3\n"}, "1:a 2:a 3:a"},
        {"the list's own ids", {ids + "7,a,A,1\n-9,b,B,1\n", ids + "-9,b2,C,1\n7,a2,B,1\n"}, "-9:b2 7:a2"},
        {"own ids where numbers are used", {parts + "a,A,1\nb,B,1\n", ids + "2,c,C,1\n9,d,D,1\n"}, "3:c 9:d"},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        std::filesystem::remove(file());
        for (const std::string& list : row.lists) {
            import(list);
        }
        EXPECT_EQ(numbers(), row.numbers);
    });
}

TEST_F(VersionsTest, ACatalogueOfTheFirstFormIsSearchedAndUpgraded)
{
    test::makeFirstForm(
        file(),
        {{5, "Bolt M8", "B-88", 15'000}, {6, "bolt", "B-1", 20'000}, {8, "Nut", "N-1", 5'000}, {9, "Nut", "", 1}});
    {
        SqliteCatalogue catalogue({.file = file()});
        EXPECT_EQ(shown(catalogue.GetProductNameList("BOLT", false)), "6:bolt 5:Bolt M8");
        EXPECT_EQ(shown(catalogue.GetPartNumList("", true)), "6:B-1 5:B-88 8:N-1");
        EXPECT_EQ(shown(catalogue.GetPartNumList("b88", false)), "none");
        catalogue.SeekItem(5);
        EXPECT_EQ(text(catalogue, LookUpColumn::name), "Bolt M8");
        EXPECT_EQ(text(catalogue, LookUpColumn::unitPrice), "1.5");
    }
    import("name,part number,price\nNut,N-1,1\nNew,X,1\nBolt M8,B-88,1\nNut,,1\n");
    EXPECT_EQ(numbers(), "1:New 5:Bolt M8 8:Nut 9:Nut");
    SqliteCatalogue upgraded({.file = file()});
    EXPECT_EQ(shown(upgraded.GetPartNumList("b88", false)), "5:b88") << "what only the present form has";
}

TEST_F(VersionsTest, ANewerFormIsNotReplaced)
{
    import("name,part number,price\na,A,1\n");
    SqliteFile(file(), SqliteFile::Access::create).run("PRAGMA user_version = 99");
    const std::string before = read(file());
    EXPECT_THAT(raisedBy([&] { import("name,part number,price\nb,B,1\n"); }).description, HasSubstr("newer version"));
    EXPECT_TRUE(read(file()) == before);
}

TEST_F(VersionsTest, AListAndWhatIsPickedFromItComeFromTheSameVersion)
{
    const std::string head = "name,part number,price\n";
    import(head + "Bolt,B,1\nNut,N,2\nOld,O,3\n");
    SqliteCatalogue desk({.file = file()});
    EXPECT_EQ(shown(desk.GetPartNumList("", true)), "1:B 2:N 3:O");
    import(head + "Nut,N,20\nBolt,B,10\n");
    desk.SeekItem(1);
    EXPECT_EQ(text(desk, LookUpColumn::unitPrice), "1") << "as the list was";
    EXPECT_EQ(shown(desk.GetProductNameList("b", false)), "1:Bolt") << "the next search is in the new version";
    desk.SeekItem(1);
    EXPECT_EQ(text(desk, LookUpColumn::unitPrice), "10");
    desk.SeekItem(3);
    EXPECT_EQ(text(desk, LookUpColumn::unitPrice), "3") << "from the other box's list, which is of the former version";
}

TEST_F(VersionsTest, ACatalogueThatIsOverwrittenInPlaceIsOpenedAgain)
{
    const auto overwrite = [&](const std::string& content) {
        std::ofstream(file(), std::ios::binary | std::ios::in | std::ios::trunc) << content; // as cp does
    };
    const std::string head = "name,part number,price\n";
    import(head + "Bolt,B,1\nNut,N,2\n");
    const std::string first = read(file());
    import(head + "Nut,N,20\nBolt,B,10\n");
    const std::string second = read(file());
    std::filesystem::remove(file());
    import(head + "Other,B,1\nOther,N,2\n");
    const std::string other = read(file());
    overwrite(first);
    std::vector<std::string> told;
    const auto desk = std::dynamic_pointer_cast<ProductLkpMgr>(
        catalogueFactory({.file = file(), .report = [&](const UserText& text) { told.push_back(text.english()); }})());
    EXPECT_EQ(shown(desk->GetPartNumList("b", false)), "1:B");
    overwrite(second);
    desk->SeekItem(1);
    EXPECT_TRUE(desk->GetFieldValue(3) == LookUpValue("Bolt")) << "the same product in the same lineage";
    EXPECT_EQ(shown(desk->GetPartNumList("b", false)), "1:B");
    overwrite(other);
    desk->SeekItem(1);
    EXPECT_TRUE(desk->IsEOF()) << "the number means something else here";
    overwrite(first.substr(0, first.size() / 2)); // half of it has been copied
    EXPECT_EQ(shown(desk->GetPartNumList("b", false)), "none");
    EXPECT_EQ(told.size(), 1u);
    overwrite(second);
    EXPECT_EQ(shown(desk->GetPartNumList("b", false)), "1:B") << "the session goes on";
    EXPECT_EQ(told.size(), 1u);
}

/// What every list and entry of a catalogue holds; or "321".
std::string everything(const std::filesystem::path& file, const std::vector<std::string>& typed)
{
    std::string all;
    try {
        SqliteCatalogue catalogue({.file = file});
        const auto add = [&](const LookUpList& rows) {
            for (const LookUpRow& row : rows.value_or(std::vector<LookUpRow>())) {
                catalogue.SeekItem(static_cast<std::int32_t>(row.itemId));
                all.append(std::to_string(row.itemId)).append(row.text);
                for (std::int32_t column = 0; column < 8 && !catalogue.IsEOF(); ++column) {
                    const LookUpValue value = catalogue.GetFieldValue(column);
                    const auto* const text = std::get_if<std::string>(&value);
                    const auto* const price = std::get_if<Currency>(&value);
                    all.append("|").append(text ? *text : price ? price->toText() : "");
                }
            }
        };
        for (const std::string& each : typed) {
            add(catalogue.GetProductNameList(each, false));
            add(catalogue.GetProductNameList({}, true));
            add(catalogue.GetPartNumList(each, false));
        }
    } catch (const RuntimeError& error) {
        return std::to_string(error.number());
    }
    return all;
}

TEST_F(VersionsTest, DamageGivesTheRightDataOrAnError)
{
    std::string list = "name,part number,price,note\n";
    for (int i = 0; i < 300; ++i) {
        list.append("Product ").append(std::to_string(i * 37 % 1000)).append(",P-").append(std::to_string(i));
        list.append(",1.5,some words of a note\n");
    }
    import(list);
    const std::vector<std::string> typed = {"prod", "note words", "p11", "prodact"};
    const std::string content = read(file()), right = everything(file(), typed);
    ASSERT_GT(right.size(), 10'000u);
    constexpr std::size_t kPage = kCheckedPage;
    const std::size_t pages = content.size() / kPage;
    std::mt19937 random(14); // NOLINT(cert-msc51-cpp): the same places each time
    int wrong = 0, errors = 0;
    const auto check = [&](const std::string& damaged, const std::string& what) {
        std::filesystem::remove(file());
        std::ofstream(file(), std::ios::binary) << damaged;
        // Nobody is writing it any more, so it is not tried again.
        std::filesystem::last_write_time(file(), std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
        const std::string now = everything(file(), typed);
        wrong += now == right || now == "321" ? 0 : 1;
        errors += now == "321" ? 1 : 0;
        EXPECT_TRUE(now == right || now == "321") << what << ": " << now.substr(0, 40);
    };
    for (std::size_t at = 0; at < 100; ++at) { // each byte of the header
        std::string damaged = content;
        damaged[at] = static_cast<char>(damaged[at] ^ (1 << random() % 8));
        check(damaged, "header byte " + std::to_string(at));
    }
    for (std::size_t page = 0; page < pages; ++page) {
        std::string byte = content, zeros = content, other = content;
        const std::size_t begin = page * kPage, from = random() % pages * kPage;
        char& changed = byte[begin + random() % kPage];
        changed = static_cast<char>(changed ^ static_cast<char>(1 + random() % 255));
        zeros.replace(begin, kPage, kPage, '\0');
        other.replace(begin, kPage, content, from, kPage);
        check(byte, "a byte of page " + std::to_string(page));
        check(zeros, "zeros for page " + std::to_string(page));
        check(other, "another page for page " + std::to_string(page));
        check(content.substr(0, begin + kPage / 2), "cut off in page " + std::to_string(page));
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(errors, static_cast<int>(pages));
}

/// One thread imports the same products again and again, in another order and with another price each time. The other
/// asks for lists and picks rows. ORVAN_LONG=1 makes the 10,000 picks of a release; otherwise there are fewer.
TEST_F(VersionsTest, NoPickIsEverAnotherProductWhileListsAreImported)
{
    constexpr int kProducts = 200;
    const int picks = std::getenv("ORVAN_LONG") ? 10'000 : 1'500; // NOLINT(concurrency-mt-unsafe): nothing sets it
    std::vector<int> order(kProducts);
    for (int i = 0; i < kProducts; ++i) {
        order[static_cast<std::size_t>(i)] = i;
    }
    std::mt19937 shuffling(3);
    const auto importNext = [&](int price) {
        std::shuffle(order.begin(), order.end(), shuffling);
        std::string list = "name,part number,price\n";
        for (const int product : order) {
            if (product % 7 != price % 7) { // some are missing each time
                list.append("Name ").append(std::to_string(product)).append(",P").append(std::to_string(product));
                list.append(",").append(std::to_string(price)).append("\n");
            }
        }
        importCatalogue(write(list, price % 2 == 0 ? "even.csv" : "odd.csv"), file());
    };
    importNext(1);
    std::atomic<bool> ends{false};
    std::atomic<int> imports{0};
    std::thread importer([&] {
        for (int price = 2; !ends; ++price, ++imports) {
            importNext(price);
        }
    });
    SqliteCatalogue desk({.file = file()});
    std::mt19937 random(5);
    int wrong = 0, missing = 0;
    for (int pick = 0; pick < picks; ++pick) {
        const bool names = random() % 2 == 0, all = random() % 2 == 0;
        const std::string typed = (names ? "name " : "p") + std::to_string(1 + random() % 9);
        const auto listOf = names ? &SqliteCatalogue::GetProductNameList : &SqliteCatalogue::GetPartNumList;
        const LookUpList rows = (desk.*listOf)(all ? "" : typed, all);
        ASSERT_TRUE(rows.has_value());
        const LookUpRow& row = (*rows)[random() % rows->size()];
        const std::optional<LookUpSummary> shown = desk.summary(row.itemId);
        if (pick % 10 == 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5)); // the user thinks; an import may end meanwhile
        }
        desk.SeekItem(static_cast<std::int32_t>(row.itemId));
        if (desk.IsEOF() || !shown) {
            ++missing;
        } else if (text(desk, names ? LookUpColumn::name : LookUpColumn::partNum) != row.text ||
                   !(desk.GetFieldValue(6) == shown->unitPrice)) {
            ++wrong;
        }
    }
    ends = true;
    importer.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(missing, 0);
    EXPECT_GT(imports, 5);
    RecordProperty("picks", picks);
}

} // namespace
} // namespace orvan

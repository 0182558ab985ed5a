// What is found behind the completions: words, codes, and words with a typing error.

#include "orvan/components/catalogue/SearchText.h"
#include "tests/catalogue/CatalogueFixture.h"

namespace orvan {
namespace {

using test::forEachRow;

class SearchTest : public test::CatalogueFixture {
protected:
    void SetUp() override
    {
        CatalogueImportOptions options;
        import("name,part number,price,note,ean\n"
               "Mountain-500 Black,BK-M500B,1,frame of aluminium,\n"
               "Mountain Tire,TI-M267,1,,0012345678905\n"
               "Road Tire,TI-R092,1,for the mountain road,\n"
               "Écrou à ailettes M8 x 20,EC-8-20,1,zingué,4 006381 000017\n"
               "Łódź lamp,4006381-333931,1,,\n"
               "Bolt M8,B-8,1,,\n"
               "bolt m10,B-10,1,,\n"
               "Crossbar,CB-1,1,,\n"
               "Bold pen,PE-N,1,,\n"
               "Ärmel,AE-1,1,,\n"
               "Arm,AR-1,1,,\n"
               "Azur,AZ-1,1,,\n");
    }
};

TEST_F(SearchTest, FindsWhatPeopleType)
{
    struct Row {
        const char* name; // the typed text
        const char *names, *partNums;
        bool missed = false; ///< Nothing begins so: the next whole list begins with what was found.
    };
    // clang-format off
    const Row rows[] = {
        // a completion first, then the words anywhere, in the order of the names
        {"mountain", "2:Mountain Tire 1:Mountain-500 Black 3:Road Tire", "1:BK-M500B 2:TI-M267 3:TI-R092", false},
        {"tire mountain", "2:Mountain Tire 3:Road Tire", "2:TI-M267 3:TI-R092", true},
        {"black 500", "1:Mountain-500 Black", "1:BK-M500B", true},
        {"ALUMINIUM", "1:Mountain-500 Black", "1:BK-M500B", true},
        // without regard to diacritics, dashes and blanks
        {"ecrou", "4:Écrou à ailettes M8 x 20", "4:EC-8-20", true},
        {"zingue AILETTES", "4:Écrou à ailettes M8 x 20", "4:EC-8-20", true},
        {"m8x20", "4:Écrou à ailettes M8 x 20", "4:EC-8-20", true},
        {"mountain500", "1:Mountain-500 Black", "1:BK-M500B", true},
        {"lodz", "5:Łódź lamp", "5:4006381-333931", true},
        {"cross bar", "8:Crossbar", "8:CB-1", true},
        // one typing error: another character, one too many, one missing, two exchanged
        {"mountian", "2:Mountain Tire 1:Mountain-500 Black 3:Road Tire", "2:TI-M267 1:BK-M500B 3:TI-R092", true},
        {"mauntain tire", "2:Mountain Tire 3:Road Tire", "2:TI-M267 3:TI-R092", true},
        {"crosssbar", "8:Crossbar", "8:CB-1", true},
        {"crosbar", "8:Crossbar", "8:CB-1", true},
        {"xrossbar", "8:Crossbar", "8:CB-1", true},
        // the other spellings behind the completion; a word of three letters is near to too many
        {"bolt", "7:bolt m10 6:Bolt M8 9:Bold pen", "", false},
        {"xyz", "", "", true},
    };
    // clang-format on
    SqliteCatalogue catalogue({.file = file()});
    const std::string allNames = shown(catalogue.GetProductNameList("", true));
    forEachRow(rows, [&](const Row& row) {
        const LookUpList found = catalogue.GetProductNameList(row.name, false);
        EXPECT_EQ(shown(found), row.missed ? "none" : row.names);
        if (row.missed) {
            const std::string whole = shown(catalogue.GetProductNameList("", true));
            EXPECT_EQ(whole.substr(0, std::string(row.names).size()), row.names);
            EXPECT_EQ(whole.size(), allNames.size()) << "each entry once";
            EXPECT_EQ(shown(catalogue.GetProductNameList("", true)), allNames) << "forgotten";
            catalogue.GetPartNumList(row.name, false);
            const std::string partNums = shown(catalogue.GetPartNumList("", true));
            EXPECT_EQ(partNums.substr(0, std::string(row.partNums).size()), row.partNums);
        }
    });
}

TEST_F(SearchTest, APartNumberWithoutItsDashesAndABarcodeAreMatches)
{
    struct Row {
        const char* name; // the typed text
        const char* partNums;
    };
    const Row rows[] = {
        {"bkm500b", "1:bkm500b"},
        {"BK M500B", "1:BK M500B"},
        {"4006381333931", "5:4006381333931"},
        {"ti-m267", "2:TI-M267"},
        {"bkm500", "none"},
        // barcodes of the list's own column; what was scanned stays in the box
        {"0012345678905", "2:0012345678905"},
        {"4006381000017", "4:4006381000017"},
        {"4 006381 000017", "4:4 006381 000017"},
        {"001234567890", "none"},
    };
    SqliteCatalogue catalogue({.file = file()});
    forEachRow(rows,
               [&](const Row& row) { EXPECT_EQ(shown(catalogue.GetPartNumList(row.name, false)), row.partNums); });
    for (const char* const code : {"bkm500b", "0012345678905"}) {
        EXPECT_EQ(shown(catalogue.GetProductNameList(code, false)), "none") << "it would become the product's name";
    }
    EXPECT_TRUE(shown(catalogue.GetProductNameList("", true)).starts_with("2:Mountain Tire")) << "it is in the list";
}

TEST_F(SearchTest, AnyOtherCallForgetsASearchThatFoundNothing)
{
    SqliteCatalogue catalogue({.file = file()});
    const std::string all = shown(catalogue.GetProductNameList("", true));
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"the other list", [&] { static_cast<void>(catalogue.GetPartNumList("", true)); }},
        {"an empty text", [&] { static_cast<void>(catalogue.GetProductNameList("", false)); }},
        {"a seek", [&] { catalogue.SeekItem(1); }},
        {"a question", [&] { static_cast<void>(catalogue.IsEOF()); }},
        {"a summary", [&] { static_cast<void>(catalogue.summary(1)); }},
    };
    for (const auto& [name, call] : calls) {
        SCOPED_TRACE(name);
        catalogue.GetProductNameList("tire mountain", false);
        call();
        EXPECT_EQ(shown(catalogue.GetProductNameList("", true)), all);
    }
}

TEST_F(SearchTest, TheOrderIsThatOfTheLanguage)
{
    const auto listed = [&](const char* language) {
        import("name,part number,price\nÄrmel,3,1\nArm,1,1\nZaun,4,1\nAzur,2,1\n", {.language = language});
        return shown(SqliteCatalogue({.file = file()}).GetProductNameList("", true));
    };
    const auto names = [](std::string text) {
        std::erase_if(text, [](char c) { return (c >= '0' && c <= '9') || c == ':'; });
        return text;
    };
    EXPECT_EQ(names(listed("")), "Arm Ärmel Azur Zaun");
    EXPECT_EQ(names(listed("de")), "Arm Ärmel Azur Zaun");
    EXPECT_EQ(names(listed("sv")), "Arm Azur Zaun Ärmel");
}

/// More entries than a search sorts begin with the same text; those with a diacritic stand between them.
TEST_F(SearchTest, BeginningsOfVeryManyEntriesAreInOrder)
{
    std::string list = "name,part number,price\n";
    std::vector<std::string> names;
    for (int i = 0; i < 6'000; ++i) {
        const std::string number = std::to_string(100'000 + i * 7919 % 6'000);
        names.push_back((i % 2 == 0 ? "arm " : i % 100 == 1 ? "är " : "ärm ") + number);
        list.append(names.back()).append(",P").append(number).append(",1\n");
    }
    import(list);
    std::sort(names.begin(), names.end());
    SqliteCatalogue catalogue({.file = file(), .mostMatches = 20});
    for (const std::string typed : {"a", "ar", "arm ", "arm 1", "ä", "är", "är ", "ärm", "arm 10012"}) {
        std::vector<std::string> expected, found;
        for (const std::string& name : names) {
            if (name.starts_with(typed) && expected.size() < 20) {
                expected.push_back(name);
            }
        }
        for (const LookUpRow& row : catalogue.GetProductNameList(typed, false).value_or(std::vector<LookUpRow>())) {
            if (row.text.starts_with(typed)) {
                found.push_back(row.text);
            }
        }
        EXPECT_EQ(found, expected) << typed;
    }
}

} // namespace
} // namespace orvan

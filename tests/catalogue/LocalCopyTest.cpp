// The local copy of a server's catalogue: a version of several layers finds what one file with the same entries finds.

#include "orvan/components/catalogue/server/LocalCopy.h"
#include "orvan/components/catalogue/PageChecksums.h"
#include "tests/catalogue/CatalogueFixture.h"

#include <map>
#include <random>

namespace orvan {
namespace {

using test::forEachRow;
using test::raisedBy;
using ::testing::HasSubstr;

struct Product {
    std::string name, partNum, note, barcode;
    std::optional<Currency> price;
};
using Products = std::map<std::int32_t, Product>;

CatalogueEntry entryOf(const Products::value_type& product)
{
    const auto& [number, its] = product;
    return {.name = its.name,
            .partNum = its.partNum,
            .unitPrice = its.price,
            .note = its.note,
            .barcode = its.barcode,
            .number = number};
}

constexpr auto kAlways = [](auto... /*progress*/) { return true; };

class LocalCopyTest : public test::CatalogueFixture {
protected:
    void SetUp() override { std::filesystem::create_directory(folder / "single"); }

    static CopyState state(std::int64_t revision)
    {
        return {.lineage = "house",
                .revision = revision,
                .source = "prices.csv",
                .language = "de",
                .stamp = std::to_string(revision)};
    }
    std::filesystem::path copied() const { return LocalCopy::catalogueIn(folder.path()); }
    std::filesystem::path single() const { return LocalCopy::catalogueIn(folder / "single"); }
    /// Makes the copy, or the other file, anew.
    void make(const Products& products, const std::filesystem::path& where) const
    {
        const auto update = LocalCopy(where).anew("de");
        for (const auto& product : products) {
            update->put(entryOf(product));
        }
        EXPECT_TRUE(update->commit(state(1), kAlways));
    }
    /// One batch: those with no name are gone.
    void change(const Products& products, std::int64_t revision) const
    {
        const auto update = copy().change();
        for (const auto& product : products) {
            if (product.second.name.empty()) {
                update->remove(product.first);
            } else {
                update->put(entryOf(product));
            }
        }
        EXPECT_TRUE(update->commit(state(revision), kAlways));
    }
    LocalCopy copy() const { return {folder.path(), limits}; }
    void mergeOnce() const
    {
        const auto merging = copy().merging();
        ASSERT_TRUE(merging);
        copy().replace(*merging, LocalCopy::merged(folder.path(), *merging, kAlways));
    }
    std::int64_t layers() const
    {
        return std::count_if(std::filesystem::directory_iterator(folder.path()), {},
                             [](const auto& entry) { return entry.path().extension() == ".catalogue"; });
    }

    static std::string found(SqliteCatalogue& catalogue, const std::string& typed)
    {
        const std::string names = shown(catalogue.GetProductNameList(typed, false));
        const std::string behind = names == "none" ? shown(catalogue.GetProductNameList("", true)) : "";
        const std::string partNums = shown(catalogue.GetPartNumList(typed, false));
        return names + "\n" + behind + "\n" + partNums +
               (partNums == "none" ? shown(catalogue.GetPartNumList("", true)) : "");
    }
    static std::string values(SqliteCatalogue& catalogue, std::int32_t number)
    {
        catalogue.SeekItem(number);
        if (catalogue.IsEOF()) {
            return "gone";
        }
        const LookUpValue price = catalogue.GetFieldValue(6);
        const auto* const amount = std::get_if<Currency>(&price);
        return std::get<std::string>(catalogue.GetFieldValue(3)) + "|" +
               std::get<std::string>(catalogue.GetFieldValue(5)) + "|" +
               std::get<std::string>(catalogue.GetFieldValue(7)) + "|" + (amount ? amount->toText() : "none");
    }

    LocalCopy::Limits limits = {.onTop = 30, .layersBetween = 2, .fewChanges = 90, .lowestByChanges = 3};
};

/// Names that differ by case and diacritics, equal names, shared words, words with errors, entries without a part
/// number or name, prices that change alone, numbers that come back.
Product anyProduct(std::mt19937& random)
{
    const char* const firsts[] = {"Ärmel", "Armel", "armband", "Arm", "Zange", "zange", "Straße", "STRASSE"};
    const char* const seconds[] = {"", " blau", " Blau gross", " rot", " mountain", " mountian", "-500 M8"};
    const auto one = [&](const auto& texts) { return std::string(texts[random() % std::size(texts)]); };
    const std::string code = std::to_string(random() % 300);
    return {.name = one(firsts) + one(seconds) + (random() % 3 == 0 ? " " + code : ""),
            .partNum = random() % 8 == 0 ? "" : "AB-" + code,
            .note = random() % 5 == 0 ? "für die Werkstatt" : "",
            .barcode = random() % 4 == 0 ? "400638133" + code : "",
            .price = random() % 9 == 0
                         ? std::nullopt
                         : std::optional(Currency::fromScaled(static_cast<std::int64_t>(random() % 100'000)))};
}

TEST_F(LocalCopyTest, FindsAfterEachBatchWhatOneFileFinds)
{
    std::mt19937 random(14);
    Products all;
    for (int number = 1; number <= 300; ++number) {
        all[number] = anyProduct(random);
    }
    make(all, folder.path());
    std::int64_t mostLayers = 0, merged = 0, toLowest = 0, atOnce = 0;
    for (std::int64_t revision = 2; revision < 28; ++revision) {
        Products batch;
        // Some batches change so much that all is written again.
        for (std::size_t i = 0, count = revision % 14 == 13 ? 400 : random() % 30; i <= count; ++i) {
            const auto number = static_cast<std::int32_t>(random() % 350 + 1);
            batch[number] = random() % 4 == 0 ? Product() : anyProduct(random);
        }
        for (const auto& [number, product] : batch) {
            product.name.empty() ? static_cast<void>(all.erase(number)) : static_cast<void>(all[number] = product);
        }
        change(batch, revision);
        copy().removeUnnamed();
        atOnce += batch.size() > 100 && layers() == 1 ? 1 : 0;
        mostLayers = std::max(mostLayers, layers());
        if (const auto merging = copy().merging(); merging && revision % 2 == 0) {
            mergeOnce();
            ++(merging->toLowest ? toLowest : merged);
        }
        make(all, folder / "single");
        ASSERT_EQ(copy().state(), state(revision));
        SqliteFile head = openCatalogue(copied());
        EXPECT_EQ(catalogueOrigin(head).entries, static_cast<std::int64_t>(all.size()));
        // Few rows, so that hidden entries would take the place of others.
        SqliteCatalogue layered({.file = copied(), .mostMatches = 12, .mostListed = 40});
        SqliteCatalogue plain({.file = single(), .mostMatches = 12, .mostListed = 40});
        for (const std::string typed :
             {"a", "ar", "arm", "är", "Zange", "zange", "strass", "blau", "gross blau", "mauntain", "werkstatt", "ab-1",
              "ab12", "400638133", "m8", "armell", "500m8"}) {
            ASSERT_EQ(found(layered, typed), found(plain, typed)) << typed << ", revision " << revision;
        }
        for (int number = 1; number <= 350; ++number) {
            ASSERT_EQ(values(layered, number), values(plain, number)) << number;
        }
    }
    EXPECT_GE(mostLayers, 4);
    EXPECT_GE(merged, 1);
    EXPECT_GE(toLowest, 1);
    EXPECT_EQ(atOnce, 2);
}

TEST_F(LocalCopyTest, AnOpenLookUpKeepsTheVersionOfItsList)
{
    limits.onTop = 0;
    make({{1, {"Bolt", "B", "", "", Currency::fromScaled(10'000)}}, {2, {"Nut", "N", "", "", {}}}}, folder.path());
    SqliteCatalogue desk({.file = copied()});
    EXPECT_EQ(shown(desk.GetProductNameList("b", false)), "1:Bolt");
    change({{1, {"Bolt", "B", "", "", Currency::fromScaled(20'000)}}}, 2);
    change({{1, {}}, {3, {"Bold pen", "P", "", "", {}}}}, 3);
    limits.fewChanges = 0;
    mergeOnce(); // which removes the files that the look-up has open
    EXPECT_EQ(layers(), 2) << "the lowest one, and an upper one without entries";
    EXPECT_EQ(values(desk, 1), "Bolt|B||1");
    EXPECT_EQ(values(desk, 3), "gone") << "it is in a later version only";
    EXPECT_EQ(shown(desk.GetProductNameList("b", false)), "3:Bold pen");
    EXPECT_EQ(shown(desk.GetPartNumList("", true)), "2:N 3:P");
    EXPECT_EQ(values(desk, 1), "gone");
}

TEST_F(LocalCopyTest, BatchesGoOnWhileLayersAreMerged)
{
    limits = {.onTop = 0, .layersBetween = 2, .fewChanges = 100, .lowestByChanges = 1};
    Products all;
    for (int number = 1; number <= 5; ++number) {
        all[number] = {"Bolt " + std::to_string(number), "B", "", "", {}};
    }
    make(all, folder.path());
    for (int revision = 2; revision < 6; ++revision) {
        change({{revision, {"Nut " + std::to_string(revision), "N", "", "", {}}}}, revision);
    }
    const auto merging = copy().merging();
    ASSERT_TRUE(merging && !merging->toLowest);
    EXPECT_EQ(LocalCopy::merged(folder.path(), *merging, [] { return false; }), "") << "stopped";
    const std::string file = LocalCopy::merged(folder.path(), *merging, kAlways);
    change({{2, {}}, {6, {"Key", "K", "", "", {}}}}, 6);
    copy().replace(*merging, file);
    EXPECT_EQ(shown(SqliteCatalogue({.file = copied()}).GetProductNameList("", true)),
              "1:Bolt 1 6:Key 3:Nut 3 4:Nut 4 5:Nut 5");
    EXPECT_EQ(copy().state(), state(6));

    const auto late = LocalCopy::Merging{{"layer-x.catalogue", "layer-y.catalogue"}, true};
    copy().replace(late, "layer-z.catalogue");
    EXPECT_EQ(copy().state(), state(6)) << "layers of a copy that has been made anew meanwhile";
}

TEST_F(LocalCopyTest, WhatIsNotCommittedHasNoEffect)
{
    make({{1, {"Bolt", "B", "", "", {}}}}, folder.path());
    const auto before = folder.count();
    {
        const auto update = copy().change();
        update->put({.name = "Nut", .partNum = "N", .number = 2});
        EXPECT_FALSE(update->commit(state(2), [](int, int) { return false; }));
    }
    copy().change()->remove(1);
    EXPECT_EQ(copy().state(), state(1));
    EXPECT_EQ(shown(SqliteCatalogue({.file = copied()}).GetProductNameList("", true)), "1:Bolt");
    EXPECT_EQ(folder.count(), before);
}

TEST_F(LocalCopyTest, DamageOfAnyLayerIsAnErrorThatNamesIt)
{
    limits.onTop = 0;
    struct Row {
        const char* name;
        bool lowest;
        std::function<void(const std::filesystem::path&)> damage;
        std::int32_t error;
    };
    const auto page = [](const std::filesystem::path& file) {
        std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
        stream.seekp(kCheckedPage + 100);
        stream.write("damage", 6);
    };
    const auto gone = [](const std::filesystem::path& file) { std::filesystem::remove(file); };
    const auto empty = [](const std::filesystem::path& file) { std::filesystem::resize_file(file, 0); };
    const Row rows[] = {{"a page of the upper layer", false, page, 321},
                        {"a page of the lowest one", true, page, 321},
                        {"the lowest one is missing", true, gone, 75},
                        {"the upper one is empty", false, empty, 321},
                        {"the lowest one is empty", true, empty, 321}};
    forEachRow(rows, [&](const Row& row) {
        make({{1, {"Bolt", "B", "", "", {}}}, {2, {"Nut", "N", "", "", {}}}}, folder.path());
        copy().removeUnnamed();
        change({{2, {"Nut M8", "N", "", "", {}}}}, 2);
        std::filesystem::path damaged = copied();
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            if (row.lowest && entry.path().filename().string().starts_with("layer-")) {
                damaged = entry.path();
            }
        }
        row.damage(damaged);
        const test::Raised raised = raisedBy([&] {
            SqliteCatalogue catalogue({.file = copied()});
            static_cast<void>(catalogue.GetProductNameList("nut", false));
            static_cast<void>(catalogue.GetProductNameList("bolt", false));
        });
        EXPECT_EQ(raised.number, row.error);
        EXPECT_THAT(raised.description, HasSubstr(damaged.filename().string()));
    });
}

} // namespace
} // namespace orvan

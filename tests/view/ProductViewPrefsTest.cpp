#include "tests/support/ViewFixture.h"

#include "view/ProductViewPrefs.h"

namespace orvan::test {
namespace {

class ProductViewPrefsTest : public ViewFixture {};

constexpr const char* kDefaultColumns = "Number Name Qty ExtPrice [Key] [PartNum] [DiscPrcnt] [UnitPrice] [Note]";

/// A settings store that cannot be read or written.
class BrokenStore final : public ui::SettingsStore {
public:
    std::string get(std::string_view, std::string_view, std::string_view) override
    {
        throw RuntimeError(ErrorNumber::pathFileAccess);
    }
    void set(std::string_view, std::string_view, std::string_view, std::string_view) override
    {
        throw RuntimeError(ErrorNumber::pathFileAccess);
    }
};

TEST_F(ProductViewPrefsTest, StoredValuesAreAppliedOrReplacedByTheDefaults)
{
    struct Row {
        const char* stored;
        const char* columns;
        const char* widths;
        std::vector<std::int32_t> errors; ///< As recorded, innermost first.
    };
    const char* const kDefaults = "250 960 700 700 700 700 700 700 700";
    const Row rows[] = {
        {"", kDefaultColumns, kDefaults, {}},
        {"4~1~250^1800^700^700^700^700^700^700^700", kDefaultColumns, "250 1800 700 700 700 700 700 700 700", {}},
        {"2~5", kDefaultColumns, kDefaults, {}},
        {"4~1~250~9", kDefaultColumns, kDefaults, {}},
        {"~", kDefaultColumns, kDefaults, {}},
        {"x~1~700", kDefaultColumns, kDefaults, {13}},
        {"~1~700", kDefaultColumns, kDefaults, {13}},
        {"3~0~300^2000", "Number Name UnitPrice PartNum [Qty] [ExtPrice] [Key] [DiscPrcnt] [Note]",
         "300 2000 960 960 960 960 960 960 960", {}},
        {"6~1~300^2000", kDefaultColumns, kDefaults, {1000, 1000}},
        {"4~-1~300", kDefaultColumns, kDefaults, {1000, 1000}},
        {"99999999999~1~300", kDefaultColumns, kDefaults, {6}},
        // The second of two equal fields moves the first one's column on.
        {"4~4~250", "Number Name [ExtPrice] Qty [Key] [PartNum] [DiscPrcnt] [UnitPrice] [Note]",
         "250 960 960 960 960 960 960 960 960", {}},
        {"4~1~", kDefaultColumns, "250 960 960 960 960 960 960 960 960", {}},
        {"4~1~^700", kDefaultColumns, kDefaults, {13}},
        {"4~1~300^-1^50", kDefaultColumns, "300 960 700 700 700 700 700 700 700", {380}},
        {"4~1~300.5^700.51", kDefaultColumns, "300 701 960 960 960 960 960 960 960", {}},
        {"4~1~300^4294967296", kDefaultColumns, "300 960 700 700 700 700 700 700 700", {6}},
        {"4~1~300^400^1^2^3^4^5^6^7^8", kDefaultColumns, "300 400 700 700 700 700 700 700 700", {9}},
        {" 4 ~1~300", kDefaultColumns, "300 960 960 960 960 960 960 960 960", {}},
    };
    for (const Row& expected : rows) {
        const std::size_t before = trace->errors().size();
        for (const std::int32_t error : expected.errors) {
            trace->declareError(error);
        }
        storePrefs(expected.stored);
        makeView();
        EXPECT_EQ(columns(), expected.columns) << expected.stored;
        EXPECT_EQ(widths(), expected.widths) << expected.stored;
        std::vector<std::int32_t> errors;
        for (std::size_t i = before; i < trace->errors().size(); ++i) {
            errors.push_back(trace->errors()[i].number());
        }
        EXPECT_EQ(errors, expected.errors) << expected.stored;
        EXPECT_EQ(storedPrefs(), expected.stored) << "reading writes nothing";
    }
}

/// The two chosen columns stand at positions 2 and 3, whichever they are and in either order.
TEST_F(ProductViewPrefsTest, EveryPairOfFieldsFindsItsPlaces)
{
    const char* const keys[] = {"PartNum", "ExtPrice", "DiscPrcnt", "UnitPrice", "Qty", "Note"};
    for (int one = 0; one < 6; ++one) {
        for (int two = 0; two < 6; ++two) {
            if (one == two) {
                continue;
            }
            storePrefs(std::to_string(one) + "~" + std::to_string(two) + "~");
            makeView();
            std::string expected = "Number Name ";
            expected.append(keys[one]).append(" ").append(keys[two]).append(" [");
            EXPECT_EQ(columns().substr(0, expected.size()), expected) << one << '~' << two;
            EXPECT_EQ(view->flexGrid().visibleTexts(0).size(), 4U) << one << '~' << two;
        }
    }
}

TEST_F(ProductViewPrefsTest, AResizeIsKeptForItsHostForm)
{
    makeView("FormA");
    view->flexGrid().dragColumn(1, 2345);
    EXPECT_EQ(storedPrefs("FormA"), "4~1~250^2345^700^700^700^700^700^700^700");
    makeView("FormB");
    EXPECT_EQ(widths(), "250 960 700 700 700 700 700 700 700");
    view->flexGrid().dragColumn(3, 1);
    makeView("FormA");
    EXPECT_EQ(widths(), "250 2345 700 700 700 700 700 700 700");
    makeView("FormB");
    EXPECT_EQ(widths(), "250 960 700 1 700 700 700 700 700");
}

TEST_F(ProductViewPrefsTest, AHostSeedsOnlyWhereNothingIsStored)
{
    seedProductViewPrefs(platform.settings(), "TestForm", "3~5~300");
    makeView();
    EXPECT_EQ(columns().substr(0, 26), "Number Name UnitPrice Note");
    seedProductViewPrefs(platform.settings(), "TestForm", "4~1~999");
    EXPECT_EQ(storedPrefs(), "3~5~300");
}

TEST_F(ProductViewPrefsTest, ABrokenStoreCostsOnlyThePreferences)
{
    class Platform final : public ui::Platform {
    public:
        explicit Platform(headless::HeadlessPlatform& inner) : inner_(inner) {}
        ui::MessageBox& messageBox() override { return inner_.messageBox(); }
        ui::SettingsStore& settings() override { return store_; }
        ui::LocaleService& locale() override { return inner_.locale(); }
        ui::ComponentFactory& components() override { return inner_.components(); }

    private:
        headless::HeadlessPlatform& inner_;
        BrokenStore store_;
    };
    Platform broken(platform);
    trace->declareError(ErrorNumber::pathFileAccess, 2);
    HeadlessProductView other(broken);
    EXPECT_EQ(other.flexGrid().columnWidth(8), 700);
    other.flexGrid().dragColumn(1, 2000);
    EXPECT_EQ(other.flexGrid().columnWidth(1), 2000) << "the drag itself stands";
}

} // namespace
} // namespace orvan::test

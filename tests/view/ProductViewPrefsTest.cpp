#include "orvan/ui/Form.h"
#include "tests/support/ViewFixture.h"

#include "orvan/view/ProductViewPrefs.h"
#include "tests/support/Rows.h"

namespace orvan::test {
namespace {

class ProductViewPrefsTest : public ViewFixture {};

constexpr const char* kDefaultColumns = "Number Name Qty ExtPrice [Key] [PartNum] [DiscPrcnt] [UnitPrice] [Note]";

/// A settings store that cannot be read or written.
class BrokenStore final : public ui::SettingsStore {
public:
    std::string get(std::string_view, std::string_view, std::string_view) override { throw RuntimeError(75); }
    void set(std::string_view, std::string_view, std::string_view, std::string_view) override { get({}, {}, {}); }
};

TEST_F(ProductViewPrefsTest, StoredValuesAreAppliedOrReplacedByTheDefaults)
{
    using Errors = std::vector<std::int32_t>;
    struct Row {
        const char* text;
        const char* columns = kDefaultColumns;
        const char* widths = "250 960 700 700 700 700 700 700 700";
        Errors errors = {};
    };
    // clang-format off
    const Row rows[] = {
        {.text = ""},
        {.text = "4~1~250^1800^700^700^700^700^700^700^700", .widths = "250 1800 700 700 700 700 700 700 700"},
        {.text = "2~5"},
        {.text = "4~1~250~9"},
        {.text = "~"},
        {.text = "~1~700", .errors = {13}},
        {.text = "x~1~700", .errors = {13}},
        {.text = "99999999999~1~300", .errors = {6}},
        {.text = "3~0~300^2000", .columns = "Number Name UnitPrice PartNum [Qty] [ExtPrice] [Key] [DiscPrcnt] [Note]",
         .widths = "300 2000 960 960 960 960 960 960 960"},
        {.text = "6~1~300^2000", .errors = {1000, 1000}},
        {.text = "4~-1~300", .errors = {1000, 1000}},
        // The second of two equal fields moves the first one's column on.
        {.text = "4~4~250", .columns = "Number Name [ExtPrice] Qty [Key] [PartNum] [DiscPrcnt] [UnitPrice] [Note]",
         .widths = "250 960 960 960 960 960 960 960 960"},
        {.text = "4~1~", .widths = "250 960 960 960 960 960 960 960 960"},
        {.text = "4~1~^700", .errors = {13}},
        {.text = "4~1~300^-1^50", .widths = "300 960 700 700 700 700 700 700 700", .errors = {380}},
        {.text = "4~1~300.5^700.51", .widths = "300 701 960 960 960 960 960 960 960"},
        {.text = "4~1~300^4294967296", .widths = "300 960 700 700 700 700 700 700 700", .errors = {6}},
        {.text = "4~1~300^400^1^2^3^4^5^6^7^8", .widths = "300 400 700 700 700 700 700 700 700", .errors = {9}},
        {.text = " 4 ~1~300", .widths = "300 960 960 960 960 960 960 960 960"},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        const std::size_t recordedBefore = trace->errors().size();
        for (const std::int32_t error : row.errors) {
            trace->declareError(error);
        }
        storePrefs(row.text);
        makeView();
        EXPECT_EQ(columns(), row.columns);
        EXPECT_EQ(widths(), row.widths);
        EXPECT_EQ(trace->numbersSince(recordedBefore), row.errors);
        EXPECT_EQ(storedPrefs(), row.text) << "reading writes nothing";
    });
}

TEST_F(ProductViewPrefsTest, AResizeIsKeptForItsHostFormAndSeedsOnlyWhatIsNotStored)
{
    const auto widthsOf = [&](const char* host) { return makeView(host), widths(); };
    makeView("FormA").flexGrid().dragColumn(1, 2345);
    EXPECT_EQ(storedPrefs("FormA"), "4~1~250^2345^700^700^700^700^700^700^700");
    EXPECT_EQ(widthsOf("FormB"), "250 960 700 700 700 700 700 700 700");
    view->flexGrid().dragColumn(3, 1);
    EXPECT_EQ(widthsOf("FormA"), "250 2345 700 700 700 700 700 700 700");
    EXPECT_EQ(widthsOf("FormB"), "250 960 700 1 700 700 700 700 700");
    for (const char* host : {"FormA", "FormC"}) {
        seedProductViewPrefs(platform.settings(), host, "3~5~300");
    }
    EXPECT_EQ(storedPrefs("FormA"), "4~1~250^2345^700^700^700^700^700^700^700");
    EXPECT_EQ(storedPrefs("FormC"), "3~5~300");
}

/// For every pair of fields: the width of each place is there again after a restart, and after the next drag.
TEST_F(ProductViewPrefsTest, EachWidthComesBackToItsPlaceForEveryPairOfFields)
{
    constexpr const char* kKeys[] = {"PartNum", "ExtPrice", "DiscPrcnt", "UnitPrice", "Qty", "Note"};
    for (std::size_t one = 0; one < std::size(kKeys); ++one) {
        for (std::size_t two = 0; two < std::size(kKeys); ++two) {
            if (one == two) {
                continue;
            }
            SCOPED_TRACE(testing::Message() << kKeys[one] << " and " << kKeys[two]);
            storePrefs(std::to_string(one) + '~' + std::to_string(two) + "~250^1800^702^703^704^705^706^707^708");
            makeView();
            const std::string keys = std::string("Number Name ") + kKeys[one] + ' ' + kKeys[two] + " [";
            EXPECT_EQ(columns().substr(0, keys.size()), keys);
            EXPECT_EQ(widths(), "250 1800 702 703 704 705 706 707 708");
            view->flexGrid().dragColumn(2, 444);
            view->flexGrid().dragColumn(3, 333);
            const std::string atClosing = widths();
            makeView();
            EXPECT_EQ(widths(), atClosing);
            EXPECT_EQ(view->flexGrid().columnWidth(3), 333);
        }
    }
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
        ui::ScreenPointer& pointer() override { return inner_.pointer(); }
        std::unique_ptr<ui::Form> loadForm(const ui::FormDesign& design, std::int32_t ownerWindow) override
        {
            return inner_.loadForm(design, ownerWindow);
        }

    private:
        headless::HeadlessPlatform& inner_;
        BrokenStore store_;
    };
    Platform broken(platform);
    trace->declareError(75, 2);
    HeadlessProductView other(broken);
    EXPECT_EQ(other.flexGrid().columnWidth(8), 700);
    other.flexGrid().dragColumn(1, 2000);
    EXPECT_EQ(other.flexGrid().columnWidth(1), 2000) << "the drag itself stands";
}

} // namespace
} // namespace orvan::test

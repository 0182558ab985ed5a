// Which fields columns One and Two show, and how wide the columns are: the defaults, and what the user
// has chosen before.

#include "orvan/view/ProductViewPrefs.h"

#include "orvan/base/Integer.h"
#include "orvan/core/modInit.h"
#include "orvan/ui/Platform.h"
#include "orvan/view/ProductColumnTable.h"

#include <algorithm>
#include <numeric>

namespace orvan {

namespace {

constexpr std::string_view kSection = "KTVOrvanProduct_ProductView_Prefs";
constexpr ViewFieldEnum kDefaultFieldOne = ViewFieldEnum::Qty;
constexpr ViewFieldEnum kDefaultFieldTwo = ViewFieldEnum::ExtPrice;
constexpr std::int32_t kDefaultWidth = 700; // twips, of every column after the name

std::string prefsKey(const std::string& hostTypeName)
{
    return "ViewSettings_" + hostTypeName;
}

/// The parts of the text between the separators; an empty text has no part, not an empty one.
std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> pieces;
    if (text.empty()) {
        return pieces;
    }
    for (std::size_t end = text.find(separator); end != text.npos; end = text.find(separator)) {
        pieces.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    pieces.push_back(text);
    return pieces;
}

} // namespace

void seedProductViewPrefs(ui::SettingsStore& settings, const std::string& hostTypeName, std::string_view value)
{
    asRuntimeError([&] {
        if (settings.get(ui::kSettingsApplication, kSection, prefsKey(hostTypeName)).empty()) {
            settings.set(ui::kSettingsApplication, kSection, prefsKey(hostTypeName), value);
        }
    });
}

void ProductColumns::PrvSetDefaultProps()
{
    tracePropagate("KTVOrvanProduct.ProductView::PrvSetDefaultProps", [&] {
        chooseFields(kDefaultFieldOne, kDefaultFieldTwo);
        defaultWidths_ = {250, 2500, 700, 700};
    });
}

void ProductColumns::chooseFields(ViewFieldEnum one, ViewFieldEnum two)
{
    chosen_[One].field = one;
    chosen_[Two].field = two;
    chosen_[One].column = PrvGetColIndexByEnum(one);
    chosen_[Two].column = PrvGetColIndexByEnum(two);
}

void ProductColumns::PrvReadPrefs()
{
    traceRecover(
        "KTVOrvanProduct.ProductView::PrvReadPrefs",
        [&] {
            if (!applyStoredPrefs()) {
                applyDefaultPrefs();
            }
        },
        // The widths of the first two columns have no default: they stay as far as the stored value set them.
        [&] { applyDefaultPrefs(); });
}

/// False when nothing usable is stored; raises when it cannot be read as numbers.
bool ProductColumns::applyStoredPrefs()
{
    const std::string value = platform_.settings().get(ui::kSettingsApplication, kSection, prefsKey(hostTypeName_));
    const auto parts = split(value, '~');
    if (parts.size() != 3) {
        return false;
    }
    const ViewFieldEnum one{textToInteger32(parts[0])};
    const ViewFieldEnum two{textToInteger32(parts[1])};
    chooseFields(one, two);
    const std::vector<std::int32_t> order = columnsOnceMoved();
    std::size_t place = 0;
    for (const std::string_view width : split(parts[2], '^')) {
        // Beyond the last column the grid raises 9.
        const std::int32_t column = place < order.size() ? order[place] : flexGrid_.columnCount();
        flexGrid_.setColumnWidth(column, textToInteger32(width));
        ++place;
    }
    return true;
}

/// The order of the columns after PrvShowChosenColumns has moved the two chosen ones: for each place in the grid, the
/// index that its column has now. Stored widths go by place in that order, but are set before the columns are moved.
std::vector<std::int32_t> ProductColumns::columnsOnceMoved() const
{
    std::vector<std::int32_t> order(static_cast<std::size_t>(flexGrid_.columnCount()));
    std::iota(order.begin(), order.end(), 0);
    auto place = order.begin() + kPositionOne;
    for (const ChosenColumn& chosen : chosen_) {
        const auto from = std::find(order.begin(), order.end(), chosen.column);
        if (from < place) { // for instance column Two where it shows the same field as column One
            std::rotate(from, from + 1, place + 1);
        } else if (from != order.end()) { // a column that lost its key: PrvRefreshColumnIndices reports it
            std::rotate(place, from, from + 1);
        }
        ++place;
    }
    return order;
}

void ProductColumns::applyDefaultPrefs()
{
    chooseFields(kDefaultFieldOne, kDefaultFieldTwo);
    defaultWidths_.fill(0);
    for (std::int32_t column = columnIndices_[kNameColumn] + 1; column < kColumnCount; ++column) {
        flexGrid_.setColumnWidth(column, kDefaultWidth);
    }
}

/// Shows what a new user sees, and saves it.
void ProductColumns::resetColumns()
{
    applyDefaultPrefs();
    flexGrid_.setColumnWidth(columnIndices_[kNumberColumn], kNumberColumnWidth);
    flexGrid_.setColumnWidth(columnIndices_[kNameColumn], ui::Grid::kDefaultColumnWidth);
    PrvShowChosenColumns();
    PrvSaveViewPrefs();
}

void ProductColumns::PrvSaveViewPrefs()
{
    traceRecover(
        "KTVOrvanProduct.ProductView::PrvSaveViewPrefs",
        [&] {
            std::string value;
            for (const ChosenColumn& chosen : chosen_) {
                value += std::to_string(static_cast<std::int32_t>(chosen.field)) + "~";
            }
            for (std::int32_t column = 0; column < flexGrid_.columnCount(); ++column) {
                value += column == 0 ? "" : "^";
                value += std::to_string(flexGrid_.columnWidth(column));
            }
            platform_.settings().set(ui::kSettingsApplication, kSection, prefsKey(hostTypeName_), value);
        },
        [] {}); // the stored value stays as it was, and the user's work goes on
}

} // namespace orvan

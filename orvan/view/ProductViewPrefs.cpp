#include "orvan/view/ProductViewPrefs.h"

#include "orvan/base/Integer.h"
#include "orvan/core/modInit.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Platform.h"
#include "orvan/view/ProductView.h"

#include <vector>

namespace orvan {

namespace {

constexpr std::string_view kSection = "KTVOrvanProduct_ProductView_Prefs";
constexpr std::int32_t kDefaultWidth = 700; // twips, of every column after the name

std::string prefsKey(const std::string& sHostType)
{
    return "ViewSettings_" + sHostType;
}

/// An empty text has no pieces at all.
std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        const auto end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == text.npos) {
            break;
        }
        text.remove_prefix(end + 1);
        if (text.empty()) {
            pieces.push_back(text); // what follows a separator is a piece, be it empty
        }
    }
    return pieces;
}

} // namespace

void seedProductViewPrefs(ui::SettingsStore& settings, const std::string& sHostType, std::string_view sValue)
{
    if (settings.get(ui::kSettingsApplication, kSection, prefsKey(sHostType)).empty()) {
        settings.set(ui::kSettingsApplication, kSection, prefsKey(sHostType), sValue);
    }
}

void ProductView::PrvReadPrefs(const std::string& sHostType)
{
    traceRecover(
        "KTVOrvanProduct.ProductView::PrvReadPrefs",
        [&] {
            if (!applyStoredPrefs(sHostType)) {
                applyDefaultPrefs();
            }
        },
        // What the stored value had already set stays where the defaults do not reach: the widths
        // of the first two columns.
        [&] { applyDefaultPrefs(); });
}

/// False when nothing usable is stored; raises when it cannot be read as numbers.
bool ProductView::applyStoredPrefs(const std::string& sHostType)
{
    const std::string sValue = platform_.settings().get(ui::kSettingsApplication, kSection, prefsKey(sHostType));
    const auto parts = split(sValue, '~');
    if (parts.size() != 3) {
        return false;
    }
    fieldOne_ = ViewFieldEnum{textToInteger32(parts[0])};
    fieldTwo_ = ViewFieldEnum{textToInteger32(parts[1])};
    columnOne_ = PrvGetColIndexByEnum(fieldOne_);
    columnTwo_ = PrvGetColIndexByEnum(fieldTwo_);
    // Widths go to the columns as they stand now. The caller moves the chosen two afterwards, and
    // they take along the widths of the places they come from.
    std::int32_t lCol = 0;
    for (const std::string_view piece : split(parts[2], '^')) {
        flexGrid_.setColumnWidth(lCol++, textToInteger32(piece));
    }
    return true;
}

void ProductView::applyDefaultPrefs()
{
    chooseDefaultFields();
    defaultWidths_.fill(0);
    for (std::int32_t lCol = columnIndices_[Name] + 1; lCol <= lastColumn_; ++lCol) {
        flexGrid_.setColumnWidth(lCol, kDefaultWidth);
    }
}

void ProductView::PrvSaveViewPrefs(const std::string& sHostType)
{
    traceRecover(
        "KTVOrvanProduct.ProductView::PrvSaveViewPrefs",
        [&] {
            std::string sWidths;
            for (std::int32_t lCol = 0; lCol < flexGrid_.columnCount(); ++lCol) {
                sWidths += lCol == 0 ? "" : "^";
                sWidths += std::to_string(flexGrid_.columnWidth(lCol));
            }
            const auto field = [](ViewFieldEnum eField) { return std::to_string(static_cast<std::int32_t>(eField)); };
            platform_.settings().set(ui::kSettingsApplication, kSection, prefsKey(sHostType),
                                     field(fieldOne_) + "~" + field(fieldTwo_) + "~" + sWidths);
        },
        [] {}); // the stored value stays as it was, and the user's work goes on
}

void ProductView::flexGrid_AfterUserResize()
{
    PrvSaveViewPrefs(hostTypeName_);
}

} // namespace orvan

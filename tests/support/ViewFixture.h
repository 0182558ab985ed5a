// ViewFixture: a list view on the in-memory platform, with everything around it that tests look at.
#pragma once

#include "orvan/hosting/HeadlessProductView.h"
#include "orvan/ui/headless/HeadlessSurface.h"
#include "tests/support/LibraryFixture.h"

#include <optional>

namespace orvan::test {

class ViewFixture : public LibraryFixture {
public:
    ~ViewFixture() override
    {
        view.reset();
        expectNothingLeft();
    }

    HeadlessProductView& makeView(const std::string& hostTypeName = "TestForm", std::int32_t ownerWindow = 0)
    {
        view.reset();
        return view.emplace(platform, hostTypeName, ownerWindow);
    }

    std::string storedPrefs(const std::string& hostTypeName = "TestForm")
    {
        return platform.settings().get("Orvan", "KTVOrvanProduct_ProductView_Prefs", "ViewSettings_" + hostTypeName);
    }
    void storePrefs(std::string_view value)
    {
        platform.settings().set("Orvan", "KTVOrvanProduct_ProductView_Prefs", "ViewSettings_TestForm", value);
    }

    headless::ButtonDriver& button(std::string_view name) { return view->surface().button(name); }
    /// For what no user sees, such as the keys of the columns.
    ui::Surface& surface() { return dynamic_cast<ui::Surface&>(view->surface()); }
    ui::Grid& grid() { return surface().control<ui::Grid>("flexGrid"); }

    /// What `text` gives for each number from `first` to before `end`, blanks between.
    template <class Text>
    static std::string joined(std::int32_t first, std::int32_t end, const Text& text)
    {
        std::string all;
        for (std::int32_t i = first; i < end; ++i) {
            all.append(i == first ? "" : " ").append(text(i));
        }
        return all;
    }
    /// The keys in grid order, hidden ones in brackets.
    std::string columns()
    {
        return joined(0, grid().columnCount(), [&](std::int32_t column) {
            const std::string& key = grid().columnKey(column);
            return grid().columnHidden(column) ? '[' + key + ']' : key;
        });
    }
    std::string widths()
    {
        return joined(0, grid().columnCount(), [&](auto column) { return std::to_string(grid().columnWidth(column)); });
    }
    /// The names in list order.
    std::string names()
    {
        const auto& grid = view->flexGrid();
        return joined(1, grid.rowCount(), [&](std::int32_t row) { return grid.visibleTexts(row)[1]; });
    }
    /// A row as the user sees it, with " | " between its cells.
    std::string row(std::int32_t row)
    {
        std::string text;
        for (const std::string& cell : view->flexGrid().visibleTexts(row)) {
            text.append(text.empty() ? "" : " | ").append(cell);
        }
        return text;
    }

    std::optional<HeadlessProductView> view;
};

} // namespace orvan::test

// ViewFixture: a list view on the in-memory platform, with everything around it that tests look at.
#pragma once

#include "core/InProcessProductMgr.h"
#include "hosting/ComponentRegistry.h"
#include "hosting/HeadlessProductView.h"
#include "tests/support/FaultyProductMgr.h"
#include "tests/support/RecordingTrace.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace orvan::test {

struct Line {
    std::string name;
    std::string partNum = {};
    std::string unitPrice = "0";
    std::string qty = "1";
    std::string discPrcnt = "0";
    std::string extPrice = "0";
    std::string note = {};
    std::string key = {};
};

/// The products string of some lines, written by a manager of its own.
inline std::string productsOf(const std::vector<Line>& lines)
{
    const auto mgr = std::dynamic_pointer_cast<ProductMgr>(productMgrFactory()());
    for (const Line& line : lines) {
        const auto record = mgr->AddNewProduct();
        record->SetName(line.name);
        record->SetPartNum(line.partNum);
        record->SetUnitPrice(Currency::fromText(line.unitPrice));
        record->SetQty(Currency::fromText(line.qty));
        record->SetDiscPrcnt(Currency::fromText(line.discPrcnt));
        record->SetExtPrice(Currency::fromText(line.extPrice));
        record->SetNote(line.note);
        record->SetKey(line.key);
    }
    return mgr->GetProductsString(kRecordSeparator, kFieldSeparator);
}

inline std::string threeProducts()
{
    return productsOf({{.name = "Desk", .partNum = "D-1", .unitPrice = "489", .qty = "2", .extPrice = "978"},
                       {.name = "Lamp", .partNum = "L-7", .unitPrice = "74.95", .qty = "1.5", .extPrice = "112.425"},
                       {.name = "Chair", .partNum = "C-3", .unitPrice = "1000", .discPrcnt = "12.5",
                        .extPrice = "875", .note = "blue"}});
}

class ViewFixture : public testing::Test {
public:
    ViewFixture()
    {
        registry.registerClass(std::string(kTraceClassName), [this] { return trace.trace(); });
        registry.registerClass(std::string(kProductMgrClassName), [this] {
            ++managersMade;
            return std::make_shared<FaultyProductMgr>(std::dynamic_pointer_cast<ProductMgr>(productMgrFactory()()),
                                                      faults);
        });
        platform.onUnhandledError = [](const RuntimeError& error) {
            ADD_FAILURE() << "unhandled error " << error.number() << ": " << error.text();
        };
    }
    ~ViewFixture() override
    {
        view.reset();
        EXPECT_EQ(faults.managersAlive, 0);
        EXPECT_EQ(platform.messageBox().unusedAnswers(), 0U) << "answers that nobody asked for";
        EXPECT_EQ(platform.messageBox().unanswered(), 0) << "message boxes that nobody scripted";
    }

    HeadlessProductView& makeView(const std::string& hostTypeName = "TestForm")
    {
        view.reset();
        return view.emplace(platform, hostTypeName);
    }

    std::string storedPrefs(const std::string& hostTypeName = "TestForm")
    {
        return platform.settings().get("Orvan", "KTVOrvanProduct_ProductView_Prefs", "ViewSettings_" + hostTypeName);
    }
    void storePrefs(std::string_view value)
    {
        platform.settings().set("Orvan", "KTVOrvanProduct_ProductView_Prefs", "ViewSettings_TestForm", value);
    }

    headless::HeadlessButton& button(std::string_view name)
    {
        return view->surface().control<headless::HeadlessButton>(name);
    }

    /// The keys in grid order, hidden ones in brackets.
    std::string columns()
    {
        std::string text;
        const auto& grid = view->flexGrid();
        for (std::int32_t column = 0; column < grid.columnCount(); ++column) {
            const bool hidden = grid.columnHidden(column);
            text.append(column == 0 ? "" : " ").append(hidden ? "[" : "");
            text.append(grid.columnKey(column)).append(hidden ? "]" : "");
        }
        return text;
    }
    std::string widths()
    {
        std::string text;
        for (std::int32_t column = 0; column < view->flexGrid().columnCount(); ++column) {
            text.append(column == 0 ? "" : " ").append(std::to_string(view->flexGrid().columnWidth(column)));
        }
        return text;
    }
    /// A row as the user sees it, with " | " between its cells.
    std::string row(std::int32_t row)
    {
        std::string text;
        for (const std::string& cell : view->flexGrid().visibleTexts(row)) {
            text += (text.empty() ? "" : " | ") + cell;
        }
        return text;
    }

    ScopedTrace trace;
    Faults faults;
    int managersMade = 0;
    ComponentRegistry registry;
    icu::IcuLocaleService locale{{.monetary = "en_US", .numeric = "en_US"}};
    headless::HeadlessPlatform platform{locale, registry};
    std::optional<HeadlessProductView> view;
};

} // namespace orvan::test

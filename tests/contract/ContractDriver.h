// ContractDriver: one platform under the contract, and a user's hands on it.
#pragma once

#include "ui/Button.h"
#include "ui/Grid.h"
#include "ui/Platform.h"
#include "ui/Surface.h"

#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

namespace orvan::contract {

using test::errorOf;
using test::Rows;

/// A grid of five columns, a frame with a button in it, a label and the text box it names.
extern const ui::FormDesign kDesign;

/// "," and "." unless a test sets others.
class TestLocale final : public ui::LocaleService {
public:
    std::string thousands = ",";
    std::string decimal = ".";

    std::int32_t getLocaleInfo(std::int32_t lcid, ui::LocaleItem item, std::span<char> buffer) override;
    std::string formatCurrency(Currency value, int /*digits*/) override { return value.toText(); }
    std::string formatNumber(Currency value, int /*digits*/) override { return value.toText(); }
    Currency textToCurrency(std::string_view text) override { return Currency::fromText(text); }
};

class NoComponents final : public ui::ComponentFactory {
public:
    std::shared_ptr<ui::Component> create(std::string_view) override { throw RuntimeError(429); }
};

class Driver {
public:
    virtual ~Driver() = default;

    TestLocale locale;
    NoComponents components;

    virtual ui::Platform& platform() = 0;
    /// A surface of its own place, shown to the user.
    virtual std::unique_ptr<ui::Surface> load(const ui::FormDesign& design) = 0;
    /// Gives the surface loaded last another size.
    virtual void resize(ui::Surface& surface, int widthTwips, int heightTwips) = 0;
    virtual void click(ui::Button& button) = 0;
    virtual void dragColumn(ui::Grid& grid, std::int32_t column, std::int32_t twips) = 0;
    virtual void chooseRow(ui::Grid& grid, std::int32_t row) = 0;
    /// What a user sees in the row, hidden columns left out.
    virtual std::vector<std::string> shown(ui::Grid& grid, std::int32_t row) = 0;
    /// Answers the next message box.
    virtual void answer(ui::MessageResult result) = 0;
};

using DriverFactory = std::unique_ptr<Driver> (*)();

class PlatformContract : public testing::TestWithParam<DriverFactory> {
protected:
    void SetUp() override;
    void TearDown() override { EXPECT_EQ(unhandled, expectedUnhandled) << "errors that no handler took"; }

    ui::Grid& grid() { return surface->control<ui::Grid>("grid"); }

    std::unique_ptr<Driver> driver;
    std::unique_ptr<ui::Surface> surface;
    std::vector<std::int32_t> unhandled;
    std::vector<std::int32_t> expectedUnhandled;
};

} // namespace orvan::contract

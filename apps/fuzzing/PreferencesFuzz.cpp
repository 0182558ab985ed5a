// The list view's preferences: the input is the stored text. A view is loaded with it, and its columns are compared
// with what the text says. Then the user drags a column, and a second view has to look like the first one.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/fuzzing/PlainNumbers.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core/Trace.h"
#include "orvan/hosting/ComponentRegistry.h"
#include "orvan/hosting/HeadlessProductView.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/icu/IcuLocaleService.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace orvan::fuzz {
namespace {

class SilentTrace final : public Trace {
public:
    std::int32_t LastErrorNumber() override { return error_; }
    void TraceError(std::string_view /*text*/) override { error_ = currentError().number(); }
    void TraceEnter(std::string_view /*label*/) override {}
    void TraceExit(std::string_view /*label*/) override {}
    std::int32_t AppErrorNumber() override { return 1000; }
    void ShowLastError(std::int32_t /*window*/) override { require(false, "a view shows no error when it is loaded"); }

private:
    std::int32_t error_ = 0;
};

/// What a view shows: the keys of its columns from left to right, a hidden one with a minus, and the widths.
struct Layout {
    std::vector<std::string> keys;
    std::vector<std::int32_t> widths;

    bool operator==(const Layout&) const = default;
};

std::vector<std::string> pieces(const std::string& text, char separator)
{
    std::vector<std::string> all;
    for (const char c : text) {
        if (all.empty()) {
            all.emplace_back();
        }
        if (c == separator) {
            all.emplace_back();
        } else {
            all.back() += c;
        }
    }
    return all;
}

/// Reads a whole number of 32 bits, in the forms that people write. The C library computes the value.
std::optional<std::int32_t> readInteger(const std::string& text)
{
    const std::string number(withoutBlanks(text));
    char* end = nullptr;
    if (number.empty() || number.find_first_not_of("0123456789+-.eE") != number.npos) {
        return std::nullopt;
    }
    const double value = std::strtod(number.c_str(), &end);
    const bool lost =
        value == 0 && number.substr(0, number.find_first_of("eE")).find_first_of("123456789") != number.npos;
    if (end != number.c_str() + number.size() || lost || !(std::abs(std::nearbyint(value)) < 2147483648.0)) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(std::nearbyint(value));
}

/// Takes the key out of the list and puts it back at the place.
void moveTo(std::vector<std::string>& keys, const std::string& key, std::ptrdiff_t place)
{
    keys.erase(std::find(keys.begin(), keys.end(), key));
    keys.insert(keys.begin() + place, key);
}

Layout layoutWith(const std::string& one, const std::string& two, std::vector<std::int32_t> widths)
{
    Layout layout{{"Number", "Name", "Qty", "ExtPrice", "Key", "PartNum", "DiscPrcnt", "UnitPrice", "Note"}, {}};
    moveTo(layout.keys, one, 2);
    moveTo(layout.keys, two, 3);
    for (std::size_t i = 2; i < layout.keys.size(); ++i) {
        layout.keys[i].insert(0, layout.keys[i] == one || layout.keys[i] == two ? "" : "-");
    }
    layout.widths = std::move(widths);
    return layout;
}

Layout expectedOf(const std::string& text)
{
    static const std::vector<std::string> fields{"PartNum", "ExtPrice", "DiscPrcnt", "UnitPrice", "Qty", "Note"};
    std::vector<std::int32_t> widths{250, 960, 700, 700, 700, 700, 700, 700, 700};
    Layout standard = layoutWith("Qty", "ExtPrice", widths);
    const std::vector<std::string> parts = pieces(text, '~');
    if (parts.size() != 3) {
        return standard;
    }
    const auto one = readInteger(parts[0]), two = readInteger(parts[1]);
    if (!one || !two || *one < 0 || *one > 5 || *two < 0 || *two > 5) {
        return standard;
    }
    std::fill(widths.begin() + 1, widths.end(), 960);
    std::size_t place = 0;
    for (const std::string& piece : pieces(parts[2], '^')) {
        const auto width = readInteger(piece);
        if (!width || *width < 0 || place == widths.size()) {
            std::fill(widths.begin() + 2, widths.end(), 700); // the first two keep what was read for them
            return layoutWith("Qty", "ExtPrice", widths);
        }
        widths[place++] = *width;
    }
    return layoutWith(fields[static_cast<std::size_t>(*one)], fields[static_cast<std::size_t>(*two)], widths);
}

Layout layoutOf(HeadlessProductView& view)
{
    const auto& grid = dynamic_cast<ui::Surface&>(view.surface()).control<ui::Grid>("flexGrid");
    Layout layout;
    for (std::int32_t column = 0; column < grid.columnCount(); ++column) {
        layout.keys.push_back((grid.columnHidden(column) ? "-" : "") + grid.columnKey(column));
        layout.widths.push_back(grid.columnWidth(column));
    }
    return layout;
}

ComponentRegistry& components()
{
    static ComponentRegistry registry;
    static const bool once = [] {
        registry.registerClass(std::string(kTraceClassName), [] { return std::make_shared<SilentTrace>(); });
        registry.registerClass(std::string(kProductMgrClassName), productMgrFactory());
        return true;
    }();
    static_cast<void>(once);
    return registry;
}

} // namespace

void runTarget(std::string_view input)
{
    static icu::IcuLocaleService locale({.monetary = "en_US", .numeric = "en_US"});
    headless::HeadlessPlatform platform(locale, components());
    platform.onUnhandledError = [](const RuntimeError& /*error*/) { require(false, "no error leaves a handler"); };
    platform.settings().set("Orvan", "KTVOrvanProduct_ProductView_Prefs", "ViewSettings_Form", input);
    Layout before;
    {
        HeadlessProductView view(platform, "Form");
        before = layoutOf(view);
        require(before == expectedOf(std::string(input)), "the columns are those that the text says");
        view.Show("1~Lamp::L-7:74.95:1.5:0:112.425:~");
        view.surface().resize(12000, 4000);
        const auto shown = static_cast<std::size_t>(std::count_if(
            before.keys.begin(), before.keys.end(), [](const std::string& key) { return key[0] != '-'; }));
        require(view.flexGrid().visibleTexts(1).size() == shown, "every column that is not hidden shows the product");
        before.widths[1] = 1234;
        view.flexGrid().dragColumn(1, 1234);
    }
    HeadlessProductView again(platform, "Form");
    require(layoutOf(again) == before, "the next view looks like the last one");
}

} // namespace orvan::fuzz

#include "orvan/lookup/LookUpValue.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/ui/LocaleService.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace orvan {

namespace {

/// Enough for any double without an exponent: up to 309 digits before the point, or up to 1074 decimals.
constexpr std::size_t kLongestDouble = 1100;

[[noreturn]] void raiseNull()
{
    throw RuntimeError(ErrorNumber::invalidUseOfNull);
}

struct ToCurrency {
    ui::LocaleService& locale;

    Currency operator()(std::monostate) const { raiseNull(); }
    Currency operator()(std::int64_t value) const { return Currency::fromInteger(value); }
    Currency operator()(double value) const { return Currency::fromDouble(value); }
    Currency operator()(Currency value) const { return value; }
    Currency operator()(const std::string& text) const { return locale.textToCurrency(text); }
};

struct ToText {
    std::string operator()(std::monostate) const { raiseNull(); }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(double value) const
    {
        if (!std::isfinite(value)) {
            throw RuntimeError(ErrorNumber::overflow);
        }
        char text[kLongestDouble];
        const auto end = std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed);
        return {text, end.ptr};
    }
    std::string operator()(Currency value) const { return value.toText(); }
    std::string operator()(const std::string& text) const { return text; }
};

} // namespace

std::int32_t toItemData(std::int64_t itemId)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (itemId < Limits::min() || itemId > Limits::max()) {
        throw RuntimeError(ErrorNumber::overflow);
    }
    return static_cast<std::int32_t>(itemId);
}

Currency toCurrency(const LookUpValue& value, ui::LocaleService& locale)
{
    return std::visit(ToCurrency{locale}, value);
}

std::string toText(const LookUpValue& value)
{
    return std::visit(ToText{}, value);
}

} // namespace orvan

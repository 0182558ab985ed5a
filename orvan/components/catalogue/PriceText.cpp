#include "orvan/components/catalogue/PriceText.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <string>

namespace orvan {

namespace {

constexpr std::size_t kLastGroup = 3;
constexpr std::size_t kLeastGroup = 2; // in India, groups before the last one have two digits: 12,34,567

/// The group separator that the text begins with; empty if there is none. The decimal separator does not count.
std::string_view groupSeparator(std::string_view text, char decimalSeparator)
{
    constexpr std::string_view kSeparators[] = {".", ",", " ", "'", "\u00A0", "\u202F", "\u2009", "\u2019"};
    for (const std::string_view each : kSeparators) {
        if (text.starts_with(each) && each.front() != decimalSeparator) {
            return each;
        }
    }
    return {};
}

} // namespace

std::optional<Currency> readPrice(std::string_view price, char decimalSeparator)
{
    std::string_view rest = trimmed(price);
    std::string plain; // the price in the form that Currency::fromText reads
    if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) {
        plain += rest.front();
        rest.remove_prefix(1);
    }
    const auto take = [&] {
        const auto count = static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), isDigit) - rest.begin());
        plain.append(rest, 0, count);
        rest.remove_prefix(count);
        return count;
    };
    std::size_t group = take();
    if (const std::string_view separator = groupSeparator(rest, decimalSeparator); !separator.empty()) {
        bool grouped = group > 0 && group <= kLastGroup && plain[plain.size() - group] != '0';
        while (grouped && rest.starts_with(separator)) {
            rest.remove_prefix(separator.size());
            group = take();
            grouped = group >= kLeastGroup && group <= kLastGroup;
        }
        if (!grouped || group != kLastGroup) {
            return {};
        }
    }
    if (rest.starts_with(decimalSeparator)) {
        rest.remove_prefix(1);
        plain += '.';
        take();
    }
    if (!rest.empty()) {
        return {};
    }
    try {
        return Currency::fromText(plain);
    } catch (const RuntimeError&) {
        return {};
    }
}

DecimalEvidence decimalEvidence(std::string_view price)
{
    const std::optional<Currency> point = readPrice(price, '.');
    const std::optional<Currency> comma = readPrice(price, ',');
    if (point == comma) {
        return DecimalEvidence::none;
    }
    if (point && comma) {
        return DecimalEvidence::ambiguous;
    }
    return point ? DecimalEvidence::point : DecimalEvidence::comma;
}

} // namespace orvan

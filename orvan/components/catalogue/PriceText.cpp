#include "orvan/components/catalogue/PriceText.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/lists/ListWords.h"

#include <unicode/uchar.h>
#include <unicode/ucurr.h>

#include <algorithm>
#include <cctype>
#include <set>
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

constexpr std::string_view kBlanks[] = {" ", "\t", "\u00A0", "\u202F", "\u2009"};
constexpr std::string_view kDashes[] = {"-", "\u2010", "\u2011", "\u2012", "\u2013", "\u2014", "\u2212"};

/// Removes one of the texts from the beginning.
template <class Texts>
bool removeFirst(std::string_view& text, const Texts& texts)
{
    for (const std::string_view each : texts) {
        if (text.starts_with(each)) {
            text.remove_prefix(each.size());
            return true;
        }
    }
    return false;
}

std::string_view withoutBlanks(std::string_view text)
{
    while (removeFirst(text, kBlanks)) {
    }
    for (bool removed = true; removed;) {
        removed = false;
        for (const std::string_view each : kBlanks) {
            if (text.ends_with(each)) {
                text.remove_suffix(each.size());
                removed = true;
            }
        }
    }
    return text;
}

bool isCurrencyCode(std::string_view folded)
{
    if (folded.size() != 3) {
        return false;
    }
    UChar code[4] = {};
    std::transform(folded.begin(), folded.end(), code,
                   [](char c) { return static_cast<UChar>(c >= 'a' ? c - 'a' + 'A' : c); });
    return ucurr_getNumericCode(code) != 0;
}

/// Whether the text, which stands beside an amount, is nothing but a currency: "€", "EUR", "US$", "Fr.", or empty.
bool isCurrency(std::string_view text)
{
    static const std::set<std::string, std::less<>> kAbbreviations = {
        "euro", "euros", "fr",     "sfr", "frs", "kr",  "zł",  "zl", "kč", "kc", "ft",     "lei",     "leu",
        "руб",  "р",     "рублей", "tl",  "лв",  "грн", "din", "kn", "rs", "rm", "dollar", "dollars", "pounds"};
    std::string letters;
    bool symbol = false;
    for (std::size_t at = 0; at < text.size(); at += characterSize(text, at)) {
        const auto character = static_cast<UChar32>(characterAt(text, at));
        if (u_charType(character) == U_CURRENCY_SYMBOL) {
            symbol = true;
        } else if (!u_isUWhiteSpace(character) && character != U'.') {
            letters += text.substr(at, characterSize(text, at));
        }
    }
    const std::string folded = foldCase(letters);
    const bool prefix = symbol && folded.size() <= 3 && isAscii(folded) &&
                        std::none_of(folded.begin(), folded.end(), [](char c) { return c < 'a' || c > 'z'; });
    return folded.empty() || prefix || kAbbreviations.contains(folded) || (isAscii(folded) && isCurrencyCode(folded));
}

/// What stands around an amount's digits.
struct Around {
    bool negative = false, plus = false, bracket = false;

    /// Reads what stands before the digits. Returns false where it does not belong to a price.
    bool readBefore(std::string_view text)
    {
        std::string currency;
        for (text = withoutBlanks(text); !text.empty();) {
            const std::string_view before = text;
            const bool signedBefore = negative || plus;
            if (removeFirst(text, kDashes)) {
                negative = true;
            } else if (text.starts_with('+')) {
                plus = true;
                text.remove_prefix(1);
            } else if (text.starts_with('(') && !bracket) {
                bracket = true;
                text.remove_prefix(1);
                continue;
            } else {
                currency += text.substr(0, characterSize(text, 0));
                text.remove_prefix(characterSize(text, 0));
                continue;
            }
            if (signedBefore || before.size() == text.size()) {
                return false;
            }
        }
        return isCurrency(currency);
    }

    /// Reads what stands behind the digits; a decimal separator is added to the amount.
    bool readBehind(std::string_view text, std::string& amount)
    {
        const bool separated = text.starts_with('.') || text.starts_with(',');
        if (separated) {
            amount += text.front();
            amount += '0';
            text.remove_prefix(1);
            while (removeFirst(text, kDashes)) { // "12,-" and "12,--"
            }
        }
        text = withoutBlanks(text);
        if (!separated && removeFirst(text, kDashes)) {
            if (negative || plus) {
                return false;
            }
            negative = true;
            text = withoutBlanks(text);
        }
        if (bracket != text.ends_with(')')) {
            return false;
        }
        text.remove_suffix(bracket ? 1 : 0);
        if (bracket && (negative || plus)) {
            return false;
        }
        negative = negative || bracket;
        return isCurrency(text);
    }
};

} // namespace

std::string amountOfPrice(std::string_view price)
{
    const auto first = std::find_if(price.begin(), price.end(), isDigit);
    if (first == price.end()) {
        return std::string(price);
    }
    auto begin = static_cast<std::size_t>(first - price.begin());
    const auto end =
        static_cast<std::size_t>(std::find_if(price.rbegin(), price.rend(), isDigit).base() - price.begin());
    // The separator of ".50" belongs to the amount, and the point of "Fr.50" does not.
    const bool beginsWithSeparator = begin > 0 && (price[begin - 1] == '.' || price[begin - 1] == ',') &&
                                     (begin == 1 || !std::isalpha(static_cast<unsigned char>(price[begin - 2])));
    begin -= beginsWithSeparator ? 1 : 0;
    Around around;
    std::string amount(price.substr(begin, end - begin));
    if (!around.readBefore(price.substr(0, begin)) || !around.readBehind(price.substr(end), amount)) {
        return std::string(price);
    }
    return around.negative ? "-" + amount : amount;
}

bool saysNoPrice(std::string_view text)
{
    text = withoutBlanks(text);
    bool dashes = false;
    std::string_view rest = text;
    while (!rest.empty()) {
        if (removeFirst(rest, kDashes)) {
            dashes = true;
        } else if (rest.front() == '.' || rest.front() == ',' || rest.front() == ' ') {
            rest.remove_prefix(1);
        } else {
            break;
        }
    }
    return text.empty() || (dashes && rest.empty()) || isWordOf(ListWords::noPrice, text);
}

ListPrice readListPrice(std::string_view text, char decimalSeparator)
{
    using Kind = ListPrice::Kind;
    if (withoutBlanks(text).empty()) {
        return {};
    }
    std::optional<Currency> amount = readPrice(text, decimalSeparator);
    if (!amount) {
        amount = readPrice(amountOfPrice(text), decimalSeparator);
    }
    if (!amount) {
        return {saysNoPrice(text) ? Kind::none : Kind::unreadable};
    }
    return {amount->scaled() < 0 ? Kind::negative : Kind::amount, *amount};
}

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
    if (!rest.empty() || std::none_of(plain.begin(), plain.end(), isDigit)) {
        return {};
    }
    try {
        return Currency::fromText(plain);
    } catch (const RuntimeError&) { // it overflows
        return {};
    }
}

DecimalEvidence decimalEvidence(std::string_view price)
{
    std::optional<Currency> point = readPrice(price, '.'), comma = readPrice(price, ',');
    if (!point && !comma && std::any_of(price.begin(), price.end(), isDigit)) {
        const std::string amount = amountOfPrice(price);
        point = readPrice(amount, '.');
        comma = readPrice(amount, ',');
    }
    if (point == comma) {
        return DecimalEvidence::none;
    }
    if (point && comma) {
        return DecimalEvidence::ambiguous;
    }
    return point ? DecimalEvidence::point : DecimalEvidence::comma;
}

} // namespace orvan

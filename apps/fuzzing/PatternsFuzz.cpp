// Patterns: how a grid's picture and a locale's pattern show an amount. The input's lines are the picture, the group
// separator, the decimal separator, the amount in ten-thousandths, and four numbers: the sizes of the last group and
// of the others, the least number of grouped digits, and the number of decimals.

#include "apps/fuzzing/FuzzTarget.h"
#include "orvan/ui/GridFormat.h"
#include "orvan/ui/icu/NumberPattern.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace orvan::fuzz {
namespace {

/// The digits of the amount with that many decimals (0 to 4), halves rounded away from zero: "12.50".
std::string plainDecimal(Currency value, int decimals)
{
    std::string digits = std::to_string(value.magnitude());
    digits.insert(0, digits.size() < 5 ? 5 - digits.size() : 0, '0');
    std::string kept = "0" + digits.substr(0, digits.size() - static_cast<std::size_t>(4 - decimals));
    if (decimals < 4 && digits[digits.size() - static_cast<std::size_t>(4 - decimals)] >= '5') {
        std::size_t at = kept.size() - 1;
        for (; kept[at] == '9'; --at) {
            kept[at] = '0';
        }
        ++kept[at];
    }
    if (kept[0] == '0') {
        kept.erase(0, 1);
    }
    return decimals == 0 ? kept : kept.insert(kept.size() - static_cast<std::size_t>(decimals), ".");
}

/// The digits with a separator after the last `primary` of them and after every `secondary` further ones (0: never).
std::string grouped(const std::string& digits, const std::string& separator, std::size_t primary, std::size_t secondary)
{
    std::string text;
    std::size_t inGroup = 0, size = primary;
    for (std::size_t at = digits.size(); at-- > 0;) {
        if (size > 0 && inGroup == size) {
            text.insert(0, separator);
            inGroup = 0;
            size = secondary;
        }
        text.insert(0, 1, digits[at]);
        ++inGroup;
    }
    return text;
}

std::string plainPicture(std::string_view picture, Currency value, const ui::NumberSeparators& separators)
{
    const std::string sign = value.scaled() < 0 ? "-" : "";
    const std::size_t first = picture.find_first_of("#0,.");
    std::string prefix(picture.substr(0, first)), suffix, integerPart, decimalPart = "####";
    if (first == picture.npos) {
        integerPart = "0";
    } else {
        const std::size_t last = picture.find_last_of("#0,.");
        const std::string body(picture.substr(first, last + 1 - first));
        suffix = picture.substr(last + 1);
        const std::size_t point = body.find('.');
        integerPart = body.substr(0, point);
        decimalPart = point == body.npos ? "" : body.substr(point + 1);
    }
    const auto count = [](const std::string& text, char c) { return std::count(text.begin(), text.end(), c); };
    const auto most = std::min<std::ptrdiff_t>(count(decimalPart, '0') + count(decimalPart, '#'), 4);
    const auto least = std::min<std::ptrdiff_t>(count(decimalPart, '0'), 4);
    const std::string number = plainDecimal(value, static_cast<int>(most));
    std::string integers = number.substr(0, number.find('.'));
    std::string decimals = most > 0 ? number.substr(number.find('.') + 1) : "";
    while (std::ssize(decimals) > least && decimals.back() == '0') {
        decimals.pop_back();
    }
    if (count(integerPart, '0') == 0 && integers == "0") {
        integers = "";
    }
    while (std::ssize(integers) < count(integerPart, '0')) {
        integers.insert(0, "0");
    }
    if (count(integerPart, ',') > 0) {
        integers = grouped(integers, separators.thousands, 3, 3);
    }
    return sign + prefix + integers + (decimals.empty() ? "" : separators.decimal + decimals) + suffix;
}

void checkPattern(const icu::NumberPattern& given, Currency value, int digits)
{
    icu::NumberPattern pattern = given;
    std::string text;
    icu::appendAmount(text, pattern, value, digits);
    const int kept = std::min(digits, 4);
    const std::string number = plainDecimal(value, kept);
    std::string integers = number.substr(0, number.find('.'));
    const auto primary = static_cast<std::size_t>(pattern.primaryGroup);
    if (integers.size() >= primary + static_cast<std::size_t>(pattern.minimumGroupingDigits)) {
        integers = grouped(integers, pattern.groupSeparator, primary, static_cast<std::size_t>(pattern.secondaryGroup));
    }
    std::string expected = value.scaled() < 0 ? "-" : "";
    expected += integers;
    if (digits > 0) {
        expected += pattern.decimalSeparator + (kept > 0 ? number.substr(number.find('.') + 1) : "") +
                    std::string(static_cast<std::size_t>(digits - kept), '0');
    }
    require(text == expected, "the amount is written as the pattern says");

    icu::makeReadable(pattern);
    std::string readable;
    icu::appendAmount(readable, pattern, value, 4);
    readable.erase(0, value.scaled() < 0 ? 1 : 0);
    if (value.scaled() != std::numeric_limits<std::int64_t>::min()) { // it has no positive counterpart
        const Currency size = Currency::fromScaled(std::abs(value.scaled()));
        require(icu::readAmount(readable, pattern, pattern) == size, "what a readable pattern writes is read again");
    }
}

} // namespace

void runTarget(std::string_view input)
{
    const std::string_view picture = takeLine(input);
    const ui::NumberSeparators separators{std::string(takeLine(input)), std::string(takeLine(input))};
    const Currency value = Currency::fromScaled(std::strtoll(std::string(takeLine(input)).c_str(), nullptr, 10));
    int sizes[4] = {};
    std::sscanf(std::string(input).c_str(), "%3d%3d%3d%3d", &sizes[0], &sizes[1], &sizes[2], &sizes[3]);
    for (int& size : sizes) {
        size = std::abs(size);
    }
    require(ui::GridFormat(picture).display(value, separators) == plainPicture(picture, value, separators),
            "an amount is shown as the picture says");
    require(ui::GridFormat().display(value, separators) == plainPicture("0.####", value, separators),
            "an amount is shown without a picture");
    checkPattern({.decimalSeparator = separators.decimal,
                  .groupSeparator = separators.thousands,
                  .primaryGroup = sizes[0] % 10,
                  .secondaryGroup = sizes[1] % 10,
                  .minimumGroupingDigits = 1 + sizes[2] % 9},
                 value, std::min(sizes[3], icu::kMostDigits));
}

} // namespace orvan::fuzz

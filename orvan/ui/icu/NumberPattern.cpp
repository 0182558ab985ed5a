#include "orvan/ui/icu/NumberPattern.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/DecimalReader.h"
#include "orvan/base/RoundedAmount.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"

#include <algorithm>

namespace orvan::icu {

namespace {

/// Writes an amount from its last character to its first, into memory that has room for it.
class BackwardPen {
public:
    explicit BackwardPen(char* end) : at_(end) {}

    void write(std::string_view text)
    {
        if (text.size() == 1) { // nearly every separator and currency symbol; a call of memcpy would take longer
            *--at_ = text[0];
        } else {
            at_ = std::copy_backward(text.begin(), text.end(), at_);
        }
    }
    void writeDigitOf(std::uint64_t& value)
    {
        *--at_ = static_cast<char>('0' + value % 10);
        value /= 10;
    }
    void skip(int size) { at_ -= size; }

private:
    char* at_;
};

int digitCount(std::uint64_t value)
{
    int count = 1;
    for (; value >= 10; value /= 10) {
        ++count;
    }
    return count;
}

int groupSeparatorCount(const NumberPattern& pattern, int digits)
{
    if (pattern.primaryGroup == 0 || digits < pattern.primaryGroup + pattern.minimumGroupingDigits) {
        return 0;
    }
    const int left = digits - pattern.primaryGroup;
    return pattern.secondaryGroup == 0 ? 1 : (left + pattern.secondaryGroup - 1) / pattern.secondaryGroup;
}

/// The amount of a text that is nothing but digits, with one decimal separator of one byte between them and up to four
/// digits behind it, as nearly every text that a user types; nothing for other texts.
bool readPlainAmount(std::string_view text, char decimalSeparator, Currency& amount)
{
    constexpr std::size_t kMostSize = 14; // with four decimals behind so many digits, the amount still fits
    if (text.size() > kMostSize) {
        return false;
    }
    std::uint64_t value = 0;
    std::size_t point = text.size(); // where the separator is
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (isDigit(text[at])) {
            value = value * 10 + static_cast<unsigned>(text[at] - '0');
        } else if (text[at] == decimalSeparator && point == text.size() && at > 0) {
            point = at;
        } else {
            return false;
        }
    }
    const std::size_t decimals = text.size() - std::min(point + 1, text.size());
    if (text.empty() || decimals > std::size_t{Currency::kDecimals}) {
        return false;
    }
    amount =
        Currency::fromScaled(static_cast<std::int64_t>(value * Currency::kPowersOfTen[Currency::kDecimals - decimals]));
    return true;
}

/// What readAmount does, for every text. A function of its own, and not inlined, so that a plain amount does not pay
/// for what this one prepares.
[[gnu::noinline]] Currency readAnyAmount(std::string_view text, const NumberPattern& number, const NumberPattern& money)
{
    const auto startsWith = [](std::string_view rest, std::string_view separator) {
        // The first byte is compared here because most separators have only one: that needs no function call.
        return !separator.empty() && rest.front() == separator.front() &&
               (separator.size() == 1 || rest.starts_with(separator));
    };
    DecimalReader reader;
    const auto point = [&](const std::string& separator) {
        if (!reader.point()) {
            throw RuntimeError(ErrorNumber::typeMismatch);
        }
        return separator.size();
    };
    while (text.remove_prefix(reader.digits(text)), !text.empty()) {
        std::size_t taken = 0;
        if (startsWith(text, number.decimalSeparator)) {
            taken = point(number.decimalSeparator);
        } else if (startsWith(text, money.decimalSeparator)) {
            taken = point(money.decimalSeparator);
        } else if (startsWith(text, number.groupSeparator)) {
            taken = number.groupSeparator.size();
        } else if (startsWith(text, money.groupSeparator)) {
            taken = money.groupSeparator.size();
        } else {
            throw RuntimeError(ErrorNumber::typeMismatch);
        }
        text.remove_prefix(taken);
    }
    if (!reader.anyDigit()) {
        throw RuntimeError(ErrorNumber::typeMismatch);
    }
    return reader.result(false);
}

} // namespace

void appendAmount(std::string& text, const NumberPattern& pattern, Currency value, int digits)
{
    if (digits < 0 || digits > kMostDigits) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall);
    }
    const bool negative = value.scaled() < 0;
    const int kept = digits < Currency::kDecimals ? digits : Currency::kDecimals;
    const std::uint64_t rounded = roundedMagnitude(value, kept);
    std::uint64_t whole = dividedByPowerOfTen(rounded, kept);
    std::uint64_t fraction = rounded - whole * Currency::kPowersOfTen[kept];
    const int wholeDigits = digitCount(whole);
    int groupsLeft = groupSeparatorCount(pattern, wholeDigits);
    const std::string& prefix = negative ? pattern.negativePrefix : pattern.positivePrefix;
    const std::string& suffix = negative ? pattern.negativeSuffix : pattern.positiveSuffix;

    // The text grows once, because each call that makes it longer takes as long as writing several digits.
    text.append(prefix.size() + static_cast<std::size_t>(wholeDigits + digits) +
                    static_cast<std::size_t>(groupsLeft) * pattern.groupSeparator.size() +
                    (digits > 0 ? pattern.decimalSeparator.size() : 0) + suffix.size(),
                '0');
    BackwardPen pen(text.data() + text.size());
    pen.write(suffix);
    if (digits > 0) {
        pen.skip(digits - kept); // these are zeros already
        for (int i = 0; i < kept; ++i) {
            pen.writeDigitOf(fraction);
        }
        pen.write(pattern.decimalSeparator);
    }
    int untilGroup = pattern.primaryGroup;
    for (int i = 0; i < wholeDigits; ++i) {
        if (groupsLeft > 0 && untilGroup == 0) {
            pen.write(pattern.groupSeparator);
            --groupsLeft;
            untilGroup = pattern.secondaryGroup;
        }
        pen.writeDigitOf(whole);
        --untilGroup;
    }
    pen.write(prefix);
}

bool looksLikeDigits(std::string_view text, std::string_view decimalSeparator)
{
    if (!decimalSeparator.empty() && text.find(decimalSeparator) != std::string_view::npos) {
        return true;
    }
    return text.find_first_of("0123456789") != std::string_view::npos;
}

void makeReadable(NumberPattern& pattern)
{
    if (characterCount(pattern.decimalSeparator) != 1 || isDigit(pattern.decimalSeparator.front())) {
        pattern.decimalSeparator.assign(1, pattern.groupSeparator == "." ? ',' : '.');
    }
    if (looksLikeDigits(pattern.groupSeparator, pattern.decimalSeparator)) {
        constexpr std::string_view kNoBreakSpace = "\u00A0";
        pattern.groupSeparator = looksLikeDigits(kNoBreakSpace, pattern.decimalSeparator) ? "'" : kNoBreakSpace;
    }
}

Currency readAmount(std::string_view text, const NumberPattern& number, const NumberPattern& money)
{
    Currency amount;
    const bool plain = number.decimalSeparator.size() == 1 && readPlainAmount(text, number.decimalSeparator[0], amount);
    return plain ? amount : readAnyAmount(text, number, money);
}

} // namespace orvan::icu

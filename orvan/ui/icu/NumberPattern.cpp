#include "orvan/ui/icu/NumberPattern.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/DecimalReader.h"
#include "orvan/base/RoundedAmount.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"

#include <charconv>

namespace orvan::icu {

namespace {

void appendGrouped(std::string& text, const NumberPattern& pattern, std::string_view digits)
{
    const auto primary = static_cast<std::size_t>(pattern.primaryGroup);
    const auto secondary = static_cast<std::size_t>(pattern.secondaryGroup);
    if (primary == 0 || digits.size() < primary + static_cast<std::size_t>(pattern.minimumGroupingDigits)) {
        text += digits;
        return;
    }
    std::size_t left = digits.size() - primary; // number of digits before the last separator
    std::size_t first = secondary == 0 ? left : left % secondary;
    if (first == 0) {
        first = secondary;
    }
    text += digits.substr(0, first);
    for (std::size_t at = first; at < left; at += secondary) {
        text += pattern.groupSeparator;
        text += digits.substr(at, secondary);
    }
    text += pattern.groupSeparator;
    text += digits.substr(left);
}

/// The amount of a text that is nothing but digits, with one decimal separator of one byte between them and up to four
/// digits behind it, as nearly every text that a user types; nothing for other texts.
bool readPlainAmount(std::string_view text, char decimalSeparator, Currency& amount)
{
    constexpr std::size_t kMostSize = 14; // with four decimals behind so many digits, the amount still fits
    if (text.size() > kMostSize) {
        return false;
    }
    const char* at = text.data();
    const char* const end = at + text.size();
    std::uint64_t value = 0;
    const auto takeDigits = [&] {
        const char* const first = at;
        for (; at != end && isDigit(*at); ++at) {
            value = value * 10 + static_cast<unsigned>(*at - '0');
        }
        return static_cast<std::size_t>(at - first);
    };
    if (takeDigits() == 0) {
        return false;
    }
    std::size_t decimals = 0;
    if (at != end && *at == decimalSeparator) {
        ++at;
        decimals = takeDigits();
    }
    if (at != end || decimals > std::size_t{Currency::kDecimals}) {
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
    constexpr auto& kPowersOfTen = Currency::kPowersOfTen;
    const int kept = digits < Currency::kDecimals ? digits : Currency::kDecimals;
    const std::uint64_t rounded = roundedMagnitude(value, kept);
    const std::uint64_t fraction = rounded % kPowersOfTen[kept];

    char buffer[24];
    const char* const end = std::to_chars(buffer, buffer + sizeof buffer, rounded / kPowersOfTen[kept]).ptr;
    const std::string_view integer(buffer, static_cast<std::size_t>(end - buffer));
    const std::string& prefix = negative ? pattern.negativePrefix : pattern.positivePrefix;
    const std::string& suffix = negative ? pattern.negativeSuffix : pattern.positiveSuffix;

    text += prefix;
    appendGrouped(text, pattern, integer);
    if (digits > 0) {
        text += pattern.decimalSeparator;
        for (int place = kept - 1; place >= 0; --place) {
            text += static_cast<char>('0' + fraction / kPowersOfTen[place] % 10);
        }
        text.append(static_cast<std::size_t>(digits - kept), '0');
    }
    text += suffix;
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

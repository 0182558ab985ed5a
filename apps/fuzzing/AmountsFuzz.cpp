// Amounts: the input is read as a text in each of the ways in which amounts are read, and its first 16 bytes are taken
// for two numbers to calculate with.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/fuzzing/PlainNumbers.h"
#include "orvan/base/Currency.h"
#include "orvan/base/Integer.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/core/modConversion.h"
#include "orvan/core/modLocale.h"
#include "orvan/ui/icu/IcuLocaleService.h"

#include <cmath>
#include <cstring>
#include <optional>
#include <vector>

namespace orvan::fuzz {
namespace {

/// Reads an optional sign, digits with at most one point, an optional exponent, and blanks around all this. The C
/// library computes the value.
std::optional<double> readPlainNumber(std::string_view text)
{
    const std::string number(withoutBlanks(text));
    std::string_view rest = number;
    rest.remove_prefix(rest.starts_with('-') || rest.starts_with('+') ? 1 : 0);
    const std::size_t mark = rest.find_first_of("eE");
    std::string mantissa(rest.substr(0, mark));
    if (const std::size_t point = mantissa.find('.'); point != mantissa.npos) {
        mantissa.erase(point, 1);
    }
    if (mantissa.empty() || !plainDigits(mantissa)) {
        return std::nullopt;
    }
    if (mark != rest.npos) {
        std::string_view exponent = rest.substr(mark + 1);
        exponent.remove_prefix(exponent.starts_with('-') || exponent.starts_with('+') ? 1 : 0);
        if (exponent.empty() || !plainDigits(exponent)) {
            return std::nullopt;
        }
    }
    const double value = std::strtod(number.c_str(), nullptr);
    // Deliberately as in the library: a number that a double cannot tell from 0 is an overflow, too.
    const bool lost = value == 0 && mantissa.find_first_not_of('0') != mantissa.npos;
    return lost ? HUGE_VAL : value;
}

void checkInteger(std::string_view text)
{
    const std::optional<double> number = readPlainNumber(text);
    try {
        const std::int32_t value = textToInteger32(text);
        // The value differs by half a unit at most; where it is exactly half a unit, the value is even.
        require(number && std::abs(value - *number) <= 0.5, "an integer is the nearest one");
        require(std::abs(value - *number) < 0.5 || value % 2 == 0, "a tie becomes even");
    } catch (const RuntimeError& error) {
        require(error.number() == (number ? ErrorNumber::overflow : ErrorNumber::typeMismatch),
                "6 for a number, 13 for another text");
        require(!number || *number >= 2147483647.5 || *number < -2147483648.5,
                "an integer is refused only if it does not fit");
    }
}

void checkText(std::string_view text)
{
    const PlainAmount expected = readPlainAmount(text);
    try {
        const Currency amount = Currency::fromText(text);
        require(expected.kind == PlainAmount::amount && amount.scaled() == expected.scaled,
                "fromText gives the amount");
        require(isShortest(amount.toText()) && Currency::fromText(amount.toText()) == amount,
                "toText gives the shortest text, which is read again");
    } catch (const RuntimeError& error) {
        require(expected.kind ==
                    (error.number() == ErrorNumber::overflow ? PlainAmount::tooLarge : PlainAmount::noNumber),
                "fromText raises 6 for an amount that is too large, 13 for another text");
    }
    const std::optional<Currency> shortest = Currency::fromShortestText(text);
    require(shortest.has_value() == isShortest(text), "fromShortestText reads the shortest text alone");
    require(!shortest || shortest->scaled() == expected.scaled, "fromShortestText gives the amount");
}

struct Locale {
    explicit Locale(const char* name) : service({.monetary = name, .numeric = name}), strings(PrvInitLocale(service)) {}

    icu::IcuLocaleService service;
    LocaleStrings strings;
};

/// What a user means by a text: the digits, and one decimal separator.
Currency readTyped(std::string_view text, const std::string& decimal)
{
    std::string kept;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] >= '0' && text[at] <= '9') {
            kept += text[at];
        } else if (text.substr(at).starts_with(decimal)) {
            kept += '.';
        }
    }
    return Currency::fromScaled(readPlainAmount(kept).scaled);
}

void checkTyped(std::string_view text, Currency amount)
{
    static std::vector<Locale> locales{Locale("en_US"), Locale("de_DE"), Locale("de_CH"), Locale("hi_IN"),
                                       Locale("ar_EG"), Locale("pt_PT"), Locale("fr_FR")};
    Locale& locale = locales[amount.magnitude() % locales.size()];
    const LocaleStrings& own = locale.strings;
    require(NumberTextToValue(locale.service, text, own.decimalSep) == readTyped(text, own.decimalSep),
            "a number is read as it is typed");
    require(CurrencyTextToValue(locale.service, text, own.monDecimalSep) == readTyped(text, own.monDecimalSep),
            "an amount of money is read as it is typed");
    if (amount >= Currency()) {
        const std::string number = FormatNumberValue(locale.service, amount, 4);
        require(NumberTextToValue(locale.service, number, own.decimalSep) == amount, "a shown number is read again");
        const std::string money = FormatCurrencyValue(locale.service, amount, 4, own.currencySymbol, true);
        require(CurrencyTextToValue(locale.service, money, own.monDecimalSep) == amount, "shown money is read again");
    }
}

void checkDouble(double value)
{
    char text[1600]; // enough for every decimal that a double can have
    PlainAmount expected{.kind = PlainAmount::tooLarge};
    if (std::abs(value) < 1e16) {
        std::snprintf(text, sizeof text, "%.1100f", value);
        expected = readPlainAmount(text);
    }
    try {
        require(Currency::fromDouble(value).scaled() == expected.scaled && expected.kind == PlainAmount::amount,
                "fromDouble gives the nearest amount");
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::overflow && expected.kind == PlainAmount::tooLarge,
                "fromDouble raises 6 only for a number that does not fit");
    }
}

__extension__ using Wide = __int128;

/// Whether `result` is the integer nearest to numerator / denominator, ties to even.
bool isNearest(Wide result, Wide numerator, Wide denominator)
{
    const Wide size = denominator < 0 ? -denominator : denominator;
    const Wide error = numerator - result * denominator;
    const Wide twice = 2 * (error < 0 ? -error : error);
    return twice < size || (twice == size && result % 2 == 0);
}

void checkCalculation(Currency a, Currency b)
{
    constexpr Wide kBeyond = Wide{1} << 63;
    const Wide x = a.scaled(), y = b.scaled();
    const auto within = [](Wide numerator, Wide denominator) {
        const Wide quotient = numerator / denominator;
        return quotient < kBeyond - 1 && quotient > -kBeyond;
    };
    try {
        require(isNearest((a * b).scaled(), x * y, Currency::kScale), "a product is the nearest amount");
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::overflow && !within(x * y, Currency::kScale),
                "a product raises 6 only if it does not fit");
    }
    try {
        require(isNearest((a / b).scaled(), x * Currency::kScale, y), "a quotient is the nearest amount");
    } catch (const RuntimeError& error) {
        require(error.number() == (y == 0 ? ErrorNumber::divisionByZero : ErrorNumber::overflow),
                "a quotient raises 11 for a division by 0, and otherwise 6");
        require(y == 0 || !within(x * Currency::kScale, y), "a quotient raises 6 only if it does not fit");
    }
}

} // namespace

void runTarget(std::string_view input)
{
    std::int64_t numbers[2] = {};
    std::memcpy(numbers, input.data(), std::min(input.size(), sizeof numbers));
    double value = 0;
    std::memcpy(&value, numbers, sizeof value);
    checkText(input);
    checkInteger(input);
    checkTyped(input, Currency::fromScaled(numbers[0]));
    checkDouble(value);
    checkCalculation(Currency::fromScaled(numbers[0]), Currency::fromScaled(numbers[1]));
}

} // namespace orvan::fuzz

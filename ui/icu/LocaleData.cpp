#include "ui/icu/LocaleData.h"

#include "base/RuntimeError.h"
#include "ui/icu/LocaleNames.h"

#include <unicode/dcfmtsym.h>
#include <unicode/formattedvalue.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/ucurr.h>

#include <algorithm>
#include <memory>

namespace orvan::icu {

namespace {

using ::icu::ConstrainedFieldPosition;
using ::icu::DecimalFormatSymbols;
using ::icu::Locale;
using ::icu::UnicodeString;
using ::icu::number::LocalizedNumberFormatter;

void check(UErrorCode status)
{
    if (U_FAILURE(status)) {
        throw RuntimeError(ErrorNumber::internalError, "IcuLocaleService", u_errorName(status));
    }
}

std::string toUtf8(const UnicodeString& text)
{
    std::string utf8;
    return text.toUTF8String(utf8);
}

bool hasDataFor(std::string_view language, std::string_view script = {})
{
    std::int32_t count = 0;
    const Locale* const all = Locale::getAvailableLocales(count);
    return std::any_of(all, all + count, [&](const Locale& each) {
        return each.getLanguage() == language && (script.empty() || each.getScript() == script);
    });
}

bool isAvailable(const Locale& locale)
{
    std::int32_t count = 0;
    const Locale* const all = Locale::getAvailableLocales(count);
    return std::find(all, all + count, locale) != all + count;
}

Locale withLikelySubtags(Locale locale)
{
    UErrorCode status = U_ZERO_ERROR;
    locale.addLikelySubtags(status);
    check(status);
    return locale;
}

void setKeyword(Locale& locale, const char* key, const char* value)
{
    UErrorCode status = U_ZERO_ERROR;
    locale.setKeywordValue(key, value, status);
    check(status);
}

/// A locale ICU has data for, or one whose language is empty.
Locale knownLocale(const std::string& base)
{
    Locale locale = Locale::createFromName(base.c_str());
    UErrorCode status = U_ZERO_ERROR;
    locale.canonicalize(status); // iw is he, sh is sr_Latn
    if (U_FAILURE(status) || locale.isBogus()) {
        return Locale("");
    }
    if (isAvailable(locale)) {
        return locale; // as it is: the only one with a variant that counts is en_US_POSIX
    }
    const char* const territory = locale.getCountry();
    if (hasDataFor(locale.getLanguage())) {
        // ICU fills a script it has no data for from the process's default locale: it is left out.
        const std::string script = locale.getScript();
        const bool known = !script.empty() && hasDataFor(locale.getLanguage(), script);
        return Locale((locale.getLanguage() + (known ? "_" + script : "")).c_str(), territory);
    }
    const Locale spoken = withLikelySubtags(Locale("und", territory));
    const bool found = *territory != '\0' && hasDataFor(spoken.getLanguage());
    // The territory is kept as it was asked for: the currency comes from it.
    return found ? Locale(spoken.getLanguage(), territory) : Locale("");
}

/// ICU's own "key=value;key=value". Only the currency matters here, and only where it is one: any
/// three characters would do for ICU, digits too.
void applyKeywords(Locale& locale, std::string_view keywords)
{
    const Locale asked = Locale::createFromName(("en@" + std::string(keywords)).c_str());
    UErrorCode status = U_ZERO_ERROR;
    const auto currency = asked.getKeywordValue<std::string>("currency", status);
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    if (U_SUCCESS(status) && currency.size() == 3 && std::all_of(currency.begin(), currency.end(), isLetter)) {
        setKeyword(locale, "currency", currency.c_str());
    }
}

void applyModifier(Locale& locale, std::string_view modifier)
{
    if (modifier.find('=') != std::string_view::npos) {
        applyKeywords(locale, modifier);
        return;
    }
    struct ScriptName {
        std::string_view modifier;
        const char* script;
    };
    static constexpr ScriptName kScripts[] = {
        {"latin", "Latn"}, {"cyrillic", "Cyrl"}, {"arabic", "Arab"}, {"devanagari", "Deva"}, {"iqtelif", "Latn"}};
    std::string lower(modifier);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (lower == "euro") {
        setKeyword(locale, "currency", "EUR");
        return;
    }
    const auto* const named = std::find_if(std::begin(kScripts), std::end(kScripts),
                                           [&](const ScriptName& each) { return each.modifier == lower; });
    if (named != std::end(kScripts) && hasDataFor(locale.getLanguage(), named->script)) {
        const std::string language = locale.getLanguage();
        locale = Locale::createFromName((language + "_" + named->script + "_" + locale.getCountry()).c_str());
    }
}

/// Finds the parts of a formatted number by the fields ICU marks in it.
class FormattedParts {
public:
    FormattedParts(const LocalizedNumberFormatter& formatter, const char* decimal)
    {
        UErrorCode status = U_ZERO_ERROR;
        const auto formatted = formatter.formatDecimal(decimal, status);
        text_ = formatted.toString(status);
        ConstrainedFieldPosition field;
        field.constrainCategory(UFIELD_CATEGORY_NUMBER);
        while (formatted.nextPosition(field, status)) {
            take(field.getField(), {field.getStart(), field.getLimit()});
        }
        check(status);
    }

    std::string prefix() const { return part({0, integer_.start}); }
    std::string suffix() const { return part({std::max(integer_.limit, fraction_.limit), text_.length()}); }
    std::string decimalSeparator() const { return part(decimal_); }
    std::string currencySymbol() const { return part(currency_); }
    /// "" when nothing is grouped.
    std::string groupSeparator() const { return part(lastGroup_); }
    int primaryGroup() const { return isGrouped() ? integer_.limit - lastGroup_.limit : 0; }
    int secondaryGroup() const
    {
        return previousGroup_.limit != 0 ? lastGroup_.start - previousGroup_.limit : primaryGroup();
    }
    bool isGrouped() const { return lastGroup_.limit != 0; }

private:
    struct Span {
        std::int32_t start = 0;
        std::int32_t limit = 0;
    };

    void take(std::int32_t field, Span span)
    {
        switch (field) {
        case UNUM_INTEGER_FIELD: integer_ = span; break;
        case UNUM_FRACTION_FIELD: fraction_ = span; break;
        case UNUM_DECIMAL_SEPARATOR_FIELD: decimal_ = span; break;
        case UNUM_CURRENCY_FIELD: currency_ = span; break;
        case UNUM_GROUPING_SEPARATOR_FIELD:
            previousGroup_ = lastGroup_;
            lastGroup_ = span;
            break;
        default: break;
        }
    }

    std::string part(Span span) const { return toUtf8(text_.tempSubStringBetween(span.start, span.limit)); }

    UnicodeString text_;
    Span integer_, fraction_, decimal_, currency_, previousGroup_, lastGroup_;
};

NumberPattern patternOf(const LocalizedNumberFormatter& formatter, const std::string& unusedGroupSeparator)
{
    // Shown, not asked for: only a formatted text tells the spaces between symbol and digits.
    const FormattedParts positive(formatter, "1234567890123.4567");
    const FormattedParts negative(formatter, "-1234567890123.4567");
    NumberPattern pattern;
    pattern.positivePrefix = positive.prefix();
    pattern.positiveSuffix = positive.suffix();
    pattern.negativePrefix = negative.prefix();
    pattern.negativeSuffix = negative.suffix();
    pattern.decimalSeparator = positive.decimalSeparator();
    pattern.groupSeparator = positive.isGrouped() ? positive.groupSeparator() : unusedGroupSeparator;
    pattern.primaryGroup = positive.primaryGroup();
    pattern.secondaryGroup = positive.secondaryGroup();
    if (positive.isGrouped()) {
        std::string digits(static_cast<std::size_t>(pattern.primaryGroup) + 1, '1');
        while (!FormattedParts(formatter, digits.c_str()).isGrouped()) {
            digits += '1'; // ends: the number above is grouped
        }
        pattern.minimumGroupingDigits = static_cast<int>(digits.size()) - pattern.primaryGroup;
    }
    makeReadable(pattern);
    return pattern;
}

LocalizedNumberFormatter formatterOf(const Locale& locale)
{
    return ::icu::number::NumberFormatter::withLocale(locale).precision(::icu::number::Precision::fixedFraction(4));
}

std::string groupSymbol(const Locale& locale, DecimalFormatSymbols::ENumberFormatSymbol symbol)
{
    UErrorCode status = U_ZERO_ERROR;
    const DecimalFormatSymbols symbols(locale, status);
    check(status);
    return toUtf8(symbols.getConstSymbol(symbol));
}

} // namespace

std::string icuLocaleId(std::string_view name)
{
    const LocaleNameParts parts = splitLocaleName(name);
    const bool isCLibrary = parts.base.empty() || parts.base == "C" || parts.base == "POSIX";
    Locale locale(isCLibrary ? Locale::getUS() : knownLocale(std::string(parts.base)));
    if (*locale.getLanguage() == '\0') {
        locale = Locale::getUS();
    }
    applyModifier(locale, parts.modifier);
    setKeyword(locale, "numbers", "latn");
    return locale.getName();
}

std::string currencyCode(const std::string& localeId)
{
    const auto ask = [](const Locale& locale) -> std::string {
        UErrorCode status = U_ZERO_ERROR;
        char16_t code[4] = {};
        const std::int32_t length = ucurr_forLocale(locale.getName(), code, 4, &status);
        return U_SUCCESS(status) && length == 3 ? toUtf8(UnicodeString(code, length)) : std::string();
    };
    const Locale locale(localeId.c_str());
    std::string code = ask(locale);
    if (code.empty()) {
        code = ask(withLikelySubtags(locale));
    }
    return code.empty() ? "XXX" : code;
}

NumberPattern numberPattern(const std::string& localeId)
{
    const Locale locale(localeId.c_str());
    return patternOf(formatterOf(locale), groupSymbol(locale, DecimalFormatSymbols::kGroupingSeparatorSymbol));
}

MoneyPattern moneyPattern(const std::string& localeId)
{
    const Locale locale(localeId.c_str());
    UErrorCode status = U_ZERO_ERROR;
    const ::icu::CurrencyUnit currency(::icu::StringPiece(currencyCode(localeId)), status);
    check(status);
    const std::string group = groupSymbol(locale, DecimalFormatSymbols::kMonetaryGroupingSeparatorSymbol);
    const auto moneyOf = [&](const LocalizedNumberFormatter& formatter) {
        return MoneyPattern{patternOf(formatter, group), FormattedParts(formatter, "1").currencySymbol()};
    };
    const LocalizedNumberFormatter formatter = formatterOf(locale).unit(currency);
    MoneyPattern money = moneyOf(formatter);
    if (looksLikeDigits(money.symbol, money.pattern.decimalSeparator)) {
        // A copy: one that is moved out of a formatter in use goes on showing what that one did.
        money = moneyOf(formatter.unitWidth(UNUM_UNIT_WIDTH_ISO_CODE));
    }
    return money;
}

} // namespace orvan::icu

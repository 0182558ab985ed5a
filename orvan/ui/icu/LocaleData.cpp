#include "orvan/ui/icu/LocaleData.h"

#include "orvan/base/Currency.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/ui/icu/LocaleNames.h"

#include <unicode/dcfmtsym.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/ucurr.h>
#include <unicode/uloc.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace orvan::icu {

namespace {

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

/// Whether a test is true for the name of at least one of ICU's locales. It uses the names, because making ICU's list
/// of Locale objects takes longer than everything else in this file.
template <class Test>
bool anyAvailable(Test&& test)
{
    const std::int32_t count = uloc_countAvailable();
    for (std::int32_t i = 0; i < count; ++i) {
        if (test(std::string_view(uloc_getAvailable(i)))) {
            return true;
        }
    }
    return false;
}

bool hasDataFor(std::string_view language, std::string_view script = {})
{
    std::string beginning(language);
    if (!script.empty()) {
        beginning.append("_").append(script);
    }
    return anyAvailable([&](std::string_view name) {
        return name.starts_with(beginning) && (name.size() == beginning.size() || name[beginning.size()] == '_');
    });
}

bool isAvailable(const Locale& locale)
{
    return anyAvailable([&](std::string_view name) { return name == locale.getName(); });
}

Locale withLikelySubtags(Locale locale)
{
    UErrorCode status = U_ZERO_ERROR;
    locale.addLikelySubtags(status);
    check(status);
    return locale;
}

/// The first of ICU's locales for the territory; "" if there is none.
std::string availableIn(std::string_view territory)
{
    std::string found;
    static_cast<void>(anyAvailable([&](std::string_view name) {
        const bool fits = name.size() > territory.size() && name.ends_with(territory) &&
                          name[name.size() - territory.size() - 1] == '_';
        found = fits ? name : "";
        return fits;
    }));
    return found;
}

void setKeyword(Locale& locale, const char* key, const char* value)
{
    UErrorCode status = U_ZERO_ERROR;
    locale.setKeywordValue(key, value, status);
    check(status);
}

/// The locale of that name, or a similar one, that ICU has data for; a locale with an empty language if there is none.
Locale knownLocale(const std::string& base)
{
    Locale locale = Locale::createFromName(base.c_str());
    UErrorCode status = U_ZERO_ERROR;
    locale.canonicalize(status); // replaces old names: "iw" by "he", "sh" by "sr_Latn"
    if (U_FAILURE(status) || locale.isBogus()) {
        return Locale("");
    }
    if (isAvailable(locale)) {
        return locale; // unchanged, because a variant may matter, as in en_US_POSIX
    }
    const char* const territory = locale.getCountry();
    if (hasDataFor(locale.getLanguage())) {
        // A script without data in ICU is left out, because ICU would then use the process's default locale.
        const std::string script = locale.getScript();
        const bool known = !script.empty() && hasDataFor(locale.getLanguage(), script);
        return Locale((locale.getLanguage() + (known ? "_" + script : "")).c_str(), territory);
    }
    if (*territory == '\0') {
        return Locale("");
    }
    // The territory stays the one in the name, because it decides the currency.
    const Locale spoken = withLikelySubtags(Locale("und", territory));
    if (hasDataFor(spoken.getLanguage())) {
        return Locale(spoken.getLanguage(), territory);
    }
    const std::string other = availableIn(territory);
    return other.empty() ? Locale("en", territory) : Locale(other.c_str());
}

bool isCurrencyCode(std::string_view code)
{
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    return code.size() == 3 && std::all_of(code.begin(), code.end(), isLetter);
}

/// Applies ICU's own "key=value;key=value". Only a currency of three letters is used: ICU itself would accept any three
/// characters, digits too.
void applyKeywords(Locale& locale, std::string_view keywords)
{
    const Locale asked = Locale::createFromName(("en@" + std::string(keywords)).c_str());
    UErrorCode status = U_ZERO_ERROR;
    const auto currency = asked.getKeywordValue<std::string>("currency", status);
    if (U_SUCCESS(status) && isCurrencyCode(currency)) {
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

constexpr int kDecimals = Currency::kDecimals;

LocalizedNumberFormatter formatterOf(const Locale& locale)
{
    return ::icu::number::NumberFormatter::withLocale(locale).precision(
        ::icu::number::Precision::fixedFraction(kDecimals));
}

/// The parts of a formatted number. They are found by the places of its digits, because no other part contains digits.
/// ICU can name the parts itself, but the first such call takes a millisecond.
class FormattedParts {
public:
    FormattedParts(const LocalizedNumberFormatter& formatter, const char* decimal)
    {
        UErrorCode status = U_ZERO_ERROR;
        text_ = formatter.formatDecimal(decimal, status).toString(status);
        check(status);
        for (std::int32_t i = 0; i < text_.length(); ++i) {
            if (text_[i] >= u'0' && text_[i] <= u'9') {
                digits_.push_back(i);
            }
        }
        if (digits_.size() <= kDecimals) {
            check(U_INTERNAL_PROGRAM_ERROR);
        }
        for (std::size_t i = 1; i < digits_.size() - kDecimals; ++i) {
            if (digits_[i] != digits_[i - 1] + 1) {
                groupBegins_.push_back(i);
            }
        }
    }

    std::string prefix() const { return part(0, digits_.front()); }
    std::string suffix() const { return part(digits_.back() + 1, text_.length()); }
    std::string decimalSeparator() const { return separatorBefore(integerDigits()); }
    bool isGrouped() const { return !groupBegins_.empty(); }
    std::string groupSeparator() const { return separatorBefore(groupBegins_.back()); }
    std::size_t primaryGroup() const { return isGrouped() ? integerDigits() - groupBegins_.back() : 0; }
    std::size_t secondaryGroup() const
    {
        const std::size_t groups = groupBegins_.size();
        return groups < 2 ? primaryGroup() : groupBegins_[groups - 1] - groupBegins_[groups - 2];
    }

private:
    std::size_t integerDigits() const { return digits_.size() - kDecimals; }
    std::string part(std::int32_t begin, std::int32_t end) const
    {
        return toUtf8(text_.tempSubStringBetween(begin, end));
    }
    /// The text between a digit and the one before it.
    std::string separatorBefore(std::size_t digit) const { return part(digits_[digit - 1] + 1, digits_[digit]); }

    UnicodeString text_;
    std::vector<std::int32_t> digits_;     // the position of each digit in the text
    std::vector<std::size_t> groupBegins_; // for each group but the first: its first digit
};

NumberPattern patternOf(const LocalizedNumberFormatter& formatter, const std::string& unusedGroupSeparator)
{
    // The pattern is read from formatted texts, because only they show the spaces between symbol and digits.
    const FormattedParts positive(formatter, "1234567890123.4567");
    const FormattedParts negative(formatter, "-1234567890123.4567");
    NumberPattern pattern;
    pattern.positivePrefix = positive.prefix();
    pattern.positiveSuffix = positive.suffix();
    pattern.negativePrefix = negative.prefix();
    pattern.negativeSuffix = negative.suffix();
    pattern.decimalSeparator = positive.decimalSeparator();
    pattern.groupSeparator = positive.isGrouped() ? positive.groupSeparator() : unusedGroupSeparator;
    pattern.primaryGroup = static_cast<int>(positive.primaryGroup());
    pattern.secondaryGroup = static_cast<int>(positive.secondaryGroup());
    if (positive.isGrouped()) {
        std::string digits(positive.primaryGroup() + 1, '1');
        while (!FormattedParts(formatter, digits.c_str()).isGrouped()) {
            digits += '1'; // ends, because the longer number above was grouped
        }
        pattern.minimumGroupingDigits = static_cast<int>(digits.size()) - pattern.primaryGroup;
    }
    makeReadable(pattern);
    return pattern;
}

std::string groupSymbol(const Locale& locale, DecimalFormatSymbols::ENumberFormatSymbol symbol)
{
    UErrorCode status = U_ZERO_ERROR;
    const DecimalFormatSymbols symbols(locale, status);
    check(status);
    return toUtf8(symbols.getConstSymbol(symbol));
}

std::string currencySymbol(const Locale& locale, const ::icu::CurrencyUnit& currency)
{
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    const char16_t* const symbol =
        ucurr_getName(currency.getISOCurrency(), locale.getName(), UCURR_SYMBOL_NAME, nullptr, &length, &status);
    check(status);
    return toUtf8(UnicodeString(symbol, length));
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

std::string withCurrency(const std::string& localeId, std::string_view code)
{
    if (code.empty()) {
        return localeId;
    }
    if (!isCurrencyCode(code)) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall, "IcuLocaleService", "a currency's code is three letters");
    }
    Locale locale(localeId.c_str());
    setKeyword(locale, "currency", std::string(code).c_str());
    return locale.getName();
}

int currencyDigits(const std::string& code)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t digits =
        ucurr_getDefaultFractionDigits(UnicodeString::fromUTF8(code).getTerminatedBuffer(), &status);
    check(status);
    return std::clamp(digits, 0, kDecimals);
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
    const auto moneyOf = [&](const LocalizedNumberFormatter& formatter, std::string symbol) {
        return MoneyPattern{patternOf(formatter, group), std::move(symbol)};
    };
    const LocalizedNumberFormatter formatter = formatterOf(locale).unit(currency);
    MoneyPattern money = moneyOf(formatter, currencySymbol(locale, currency));
    if (looksLikeDigits(money.symbol, money.pattern.decimalSeparator)) {
        // `formatter` must be copied here and not moved: moved after it has been used, it would keep the old symbol.
        money = moneyOf(formatter.unitWidth(UNUM_UNIT_WIDTH_ISO_CODE), currencyCode(localeId));
    }
    return money;
}

} // namespace orvan::icu

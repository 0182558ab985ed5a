#include "orvan/testing/Patched.h"
#include "tests/conformance/Subjects.h"
#include "tests/conformance/Wrong.h"

#include <map>
#include <optional>

namespace orvan::test {
namespace {

using namespace conformance;
using ui::LocaleItem;
using ui::LocaleService;
using ui::MessageButtons;
using ui::MessageResult;

// --- Locale services ---------------------------------------------------------------------------------

using L = testkit::LocalePatches;

/// Makes a locale service with the patches.
struct Patched {
    L patches;
    operator LocaleServiceFactory() const
    {
        return [each = patches] { return std::make_shared<testkit::PatchedLocale>(locale("en_US")(), each); };
    }
};

std::int32_t infoOf(LocaleService& own, LocaleItem item, std::span<char> buffer)
{
    return own.getLocaleInfo(ui::kLocaleUserDefault, item, buffer);
}

/// A service that gives another text for one item.
L giving(LocaleItem wrong, const char* text)
{
    return {.item = [=](LocaleService& own, LocaleItem item, std::span<char> buffer) {
        const std::string given(text);
        return item != wrong ? infoOf(own, item, buffer)
                             : static_cast<std::int32_t>(given.copy(buffer.data(), buffer.size()) + 1);
    }};
}

/// The value and the decimals that are written in the place of others.
using Rewrite = std::pair<Currency, int> (*)(Currency value, int digits);

L number(Rewrite rewrite)
{
    return {.number = [rewrite](LocaleService& own, std::string& text, Currency value, int digits) {
        const auto [written, decimals] = rewrite(value, digits);
        own.appendNumber(text, written, decimals);
    }};
}

L money(Rewrite rewrite)
{
    return {.currency = [rewrite](LocaleService& own, std::string& text, Currency value, int digits) {
        const auto [written, decimals] = rewrite(value, digits);
        own.appendCurrency(text, written, decimals);
    }};
}

std::pair<Currency, int> withoutNeedlessDecimals(Currency value, int digits)
{
    return {value, value.scaled() % Currency::kScale == 0 ? 0 : digits};
}

/// A service that reads what its own does not read as 0, where the text has so many points.
L reading0(std::ptrdiff_t points)
{
    return {.read = [points](LocaleService& own, std::string_view text) {
        Currency value;
        const std::int32_t error = errorOf([&] { value = own.textToCurrency(text); });
        const bool lenient = error == ErrorNumber::typeMismatch && std::count(text.begin(), text.end(), '.') == points;
        return error == 0 || lenient ? value : throw RuntimeError(error);
    }};
}

const Wrong<LocaleServiceFactory> kWrongLocales[] = {
    {"CountsTheNullAtTheEndOfAnItem",
     Patched{{.item = [](auto& own, auto item, auto buffer) { return std::max(infoOf(own, item, buffer) - 1, 0); }}}},
    {"ItemThatDoesNotFitGives0",
     Patched{{.item = [](auto& own, auto item,
                         auto buffer) { return std::max(infoOf(own, item, buffer), buffer.size() < 2 ? 1 : 0); }}}},
    {"NothingIsWrittenBeyondTheBuffer", Patched{{.item =
                                                     [](auto& own, auto item, auto buffer) {
                                                         return buffer.size() == 1 ? buffer.data()[1] = '\0'
                                                                                   : infoOf(own, item, buffer);
                                                     }}}},
    {"UnknownItemGives0", Patched{giving(LocaleItem(0x7FFF), "")}},
    {"ThousandsSeparatorIsNoDigit", Patched{giving(LocaleItem::thousandsSeparator, "0")}},
    {"CurrencySymbolHasNoDigit", Patched{giving(LocaleItem::currencySymbol, "EUR1")}},
    {"NumberIsAppended", Patched{{.number = [](auto& own, std::string& text, auto value,
                                               int digits) { text = own.formatNumber(value, digits); }}}},
    {"MoneyIsAppended", Patched{{.currency = [](auto& own, std::string& text, auto value,
                                                int digits) { text = own.formatCurrency(value, digits); }}}},
    {"DigitsAre0To9", Patched{{.number =
                                   [](auto& own, std::string& text, auto value, int digits) {
                                       text += digits == 0 && value.scaled() > 100'000
                                                   ? "\xD9\xA6"
                                                   : own.formatNumber(value, digits);
                                   }}}},
    {"NumberHasExactlyTheDecimals", Patched{number(withoutNeedlessDecimals)}},
    {"MoneyHasExactlyTheDecimals", Patched{money(withoutNeedlessDecimals)}},
    {"NumberRoundsHalvesAwayFromZero", Patched{number([](Currency value, int digits) {
         return std::pair(digits == 0 ? value - Currency::fromScaled(value.scaled() % Currency::kScale) : value,
                          digits);
     })}},
    {"MoneyRoundsHalvesAwayFromZero", Patched{money([](Currency value, int digits) {
         return std::pair(value - Currency::fromScaled(value.scaled() % 100), digits);
     })}},
    {"NegativeMoneyLooksNegative",
     Patched{money([](Currency value, int digits) { return std::pair(std::max(value, -value), digits); })}},
    {"NumberIsReadBack", Patched{{.read =
                                      [](auto& own, std::string_view text) {
                                          const Currency value = own.textToCurrency(text);
                                          return text.size() > 15 ? Currency::fromDouble(value.toDouble()) : value;
                                      }}}},
    {"MoneyIsReadBack", Patched{money([](Currency value, int digits) {
         return std::pair(value.scaled() == 100 ? Currency() : value, digits);
     })}},
    {"GroupedNumberIsReadWhole", Patched{{.read =
                                              [](auto& own, std::string_view text) {
                                                  return text.find(',') != text.npos ? throw RuntimeError(13)
                                                                                     : own.textToCurrency(text);
                                              }}}},
    {"FifthDecimalIsRoundedToEven", Patched{{.read =
                                                 [](auto& own, std::string_view text) {
                                                     return text == "0.00025" ? Currency::fromScaled(3)
                                                                              : own.textToCurrency(text);
                                                 }}}},
    {"TextThatIsNoAmountRaises13", Patched{reading0(0)}},
    {"SecondDecimalSeparatorRaises13", Patched{reading0(2)}},
    {"AmountBeyondTheRangeRaises6", Patched{{.read =
                                                 [](auto& own, std::string_view text) {
                                                     Currency value;
                                                     const auto error =
                                                         errorOf([&] { value = own.textToCurrency(text); });
                                                     return error == 0 ? value : throw RuntimeError(13);
                                                 }}}},
    {"UpperAndLowerCaseFoldAlike",
     Patched{{.fold = [](auto& own,
                         char32_t character) { return character == U'Q' ? character : own.foldCase(character); }}}},
    {"DifferentLettersFoldApart",
     Patched{
         {.fold = [](auto& own, char32_t character) { return character < U'A' ? U'0' : own.foldCase(character); }}}},
};

TEST(LocaleServiceConformance, EachRowCatchesItsOwnFault)
{
    expectEachRowToCatchItsOwn(locales::kRows, locale("en_US"), kWrongLocales);
}

// --- Settings stores ---------------------------------------------------------------------------------

using Values = std::map<std::string, std::string>;
using Text = const std::string&;

std::string placeOf(Text application, Text section, Text key)
{
    return application + "\n" + section + "\n" + key;
}

/// A store in a map, with what is wrong about it.
struct Settings final : ui::SettingsStore {
    struct Faults {
        std::string (*place)(Text application, Text section, Text key) = placeOf;
        std::string (*stored)(Text value, Text former) = [](Text value, Text /*former*/) { return value; };
        std::string missing = {};
    };

    Settings(std::shared_ptr<Values> kept, Faults wrong) : values(std::move(kept)), faults(std::move(wrong)) {}

    std::string get(std::string_view application, std::string_view section, std::string_view key) override
    {
        const auto found = values->find(faults.place(std::string(application), std::string(section), std::string(key)));
        return found == values->end() ? faults.missing : found->second;
    }
    void set(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override
    {
        std::string& kept = (*values)[faults.place(std::string(application), std::string(section), std::string(key))];
        kept = faults.stored(std::string(value), std::string(kept));
    }

    std::shared_ptr<Values> values;
    Faults faults;
};

SettingsStoreSubject settings(const Settings::Faults& faults, bool keeps = true)
{
    const auto last = std::make_shared<std::shared_ptr<Values>>();
    return {
        .makeEmpty = [=] { return std::make_shared<Settings>(*last = std::make_shared<Values>(), faults); },
        .makeAgain = [=] { return std::make_shared<Settings>(keeps ? *last : std::make_shared<Values>(), faults); }};
}

std::string overwritten(Text value, Text former)
{
    return value.empty() || value.size() > former.size() ? value : value + former.substr(value.size());
}

std::string placeWithoutEquals(Text application, Text section, Text key)
{
    return key.find('=') != key.npos ? throw RuntimeError(75) : placeOf(application, section, key);
}

const Wrong<SettingsStoreSubject> kWrongSettings[] = {
    {"MissingKeyReadsAsNothing", settings({.missing = "none"})},
    {"ValueIsKept", settings({.stored = [](Text value, Text) { return value.substr(0, value.find('^')); }})},
    {"LaterValueReplacesTheFormer", settings({.stored = overwritten})},
    {"EmptyValueReplacesTheFormer",
     settings({.stored = [](Text value, Text former) { return value.empty() ? former : value; }})},
    {"AnyValueIsKept", settings({.stored = [](Text value, Text) { return value.substr(0, value.find('\n')); }})},
    {"AnyKeyIsKept", settings({.place = placeWithoutEquals})},
    {"KeysAreApart",
     settings({.place = [](Text one, Text two, Text key) { return placeOf(one, two, key.substr(0, 3)); }})},
    {"SectionsAreApart", settings({.place = [](Text one, Text, Text key) { return placeOf(one, "", key); }})},
    {"ApplicationsAreApart", settings({.place = [](Text, Text two, Text key) { return placeOf("", two, key); }})},
    {"ValueOutlivesTheStore", settings({}, false)},
};

TEST(SettingsStoreConformance, EachRowCatchesItsOwnFault)
{
    expectEachRowToCatchItsOwn(conformance::settings::kRows, settings({}), kWrongSettings);
}

// --- Message boxes -----------------------------------------------------------------------------------

/// A box whose user has said in advance what to do.
struct Box final : ui::MessageBox {
    /// What is told of a press, or of closing where there is none; `right` is what should be.
    using Tell = MessageResult (*)(Box& box, const ui::Message& message, MessageResult right);

    explicit Box(Tell how) : tell(how) {}

    MessageResult show(const ui::Message& message) override
    {
        const MessageResult closed = message.buttons == MessageButtons::ok      ? MessageResult::ok
                                     : message.buttons == MessageButtons::yesNo ? MessageResult::no
                                                                                : MessageResult::cancel;
        shown = message.text.english();
        return tell(*this, message, pressed.value_or(closed));
    }

    Tell tell;
    std::optional<MessageResult> pressed = {}, before = {};
    std::string shown = {};
};

MessageBoxSubject box(Box::Tell tell)
{
    const auto last = std::make_shared<std::shared_ptr<Box>>();
    return {.make = [=] { return *last = std::make_shared<Box>(tell); },
            .press = [](ui::MessageBox& each, MessageResult button) { dynamic_cast<Box&>(each).pressed = button; },
            .close = [](ui::MessageBox& each) { dynamic_cast<Box&>(each).pressed.reset(); },
            .shownText = [=] { return (*last)->shown; }};
}

/// A box that tells an answer as another one.
template <MessageButtons buttons, bool isPressed, MessageResult answer, MessageResult wrong>
MessageBoxSubject confusing()
{
    return box([](Box& each, const ui::Message& message, MessageResult right) {
        return message.buttons == buttons && each.pressed.has_value() == isPressed && right == answer ? wrong : right;
    });
}

const Wrong<MessageBoxSubject> kWrongBoxes[] = {
    {"OkIsTold", confusing<MessageButtons::ok, true, MessageResult::ok, MessageResult::cancel>()},
    {"YesIsTold", confusing<MessageButtons::yesNo, true, MessageResult::yes, MessageResult::ok>()},
    {"NoIsTold", confusing<MessageButtons::yesNo, true, MessageResult::no, MessageResult::yes>()},
    {"EachOfThreeButtonsIsTold",
     confusing<MessageButtons::yesNoCancel, true, MessageResult::cancel, MessageResult::no>()},
    {"ClosedOkIsOk", confusing<MessageButtons::ok, false, MessageResult::ok, MessageResult::cancel>()},
    {"ClosedYesNoIsNo", confusing<MessageButtons::yesNo, false, MessageResult::no, MessageResult::cancel>()},
    {"ClosedYesNoCancelIsCancel",
     confusing<MessageButtons::yesNoCancel, false, MessageResult::cancel, MessageResult::no>()},
    {"AsksAgain", box([](Box& each, const ui::Message&, MessageResult right) {
         each.before = each.before.value_or(right);
         return *each.before;
     })},
    {"MissingOwnerCountsAsNone", box([](Box&, const ui::Message& message, MessageResult right) {
         return message.ownerWindow != 0 ? throw RuntimeError(5) : right;
     })},
    {"TextIsNoMarkup", box([](Box& each, const ui::Message&, MessageResult right) {
         each.shown = each.shown.substr(0, each.shown.find('<'));
         return right;
     })},
    {"LongTextIsShown", box([](Box&, const ui::Message& message, MessageResult right) {
         return message.text.english().size() > 65'535 ? throw RuntimeError(14) : right;
     })},
};

TEST(MessageBoxConformance, EachRowCatchesItsOwnFault)
{
    expectEachRowToCatchItsOwn(boxes::kRows, box([](Box&, const ui::Message&, MessageResult right) { return right; }),
                               kWrongBoxes);
}

} // namespace
} // namespace orvan::test

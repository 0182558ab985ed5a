// CallWatch: sees each call that the library makes out of itself: of a manager and its records, a catalogue, a trace,
// the settings, message boxes, formats, the clipboard, the pointer, timers and forms.
//
// A watch can let a call pass and note it, make it fail, or answer it in the place of the one who is called. So a
// failing disk, a recording and its replay are all watches; what they watch are the wrappers of
// orvan/outside/WatchedPlatform.h.
//
// Names of calls are the role and the operation: "manager.GetProduct", "product.SetQty", "catalogue.SeekItem",
// "trace.TraceEnter", "settings.get", "box.show", "locale.appendCurrency", "clipboard.text", "pointer.setCode",
// "timer.schedule", "components.create", "platform.loadForm".
//
// Ownership: a watch must outlive its wrappers. Thread: the user-interface thread. Errors: what `begin` throws is what
// the call raises.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/base/SafeVariant.h"
#include "orvan/catalogue_export.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace orvan::outside {

/// A part of an answer. Truth values and positions are numbers.
using CallValue = SafeVariant<std::monostate, std::int64_t, double, Currency, std::string>;
using CallValues = std::vector<CallValue>;

/// One argument: a number, an amount, or a text, which is valid during the call only.
class CallArgument {
public:
    template <class Value>
    CallArgument(const Value& value) : value_(held(value))
    {
    }
    const std::variant<std::int64_t, Currency, std::string_view>& value() const { return value_; }

private:
    template <class Value>
    static auto held(const Value& value)
    {
        if constexpr (std::is_same_v<Value, Currency>) {
            return value;
        } else if constexpr (std::is_enum_v<Value> || std::is_integral_v<Value>) {
            return static_cast<std::int64_t>(value);
        } else {
            return std::string_view(value);
        }
    }

    std::variant<std::int64_t, Currency, std::string_view> value_;
};
using CallArguments = std::initializer_list<CallArgument>;

class CallWatch {
public:
    virtual ~CallWatch() = default;

    /// The library makes a call. Returns whether it is to be passed on; if not, `answer` is the answer.
    virtual bool begin(std::string_view name, CallArguments arguments, CallValues& answer) = 0;
    /// Whether `end` is to be called. If not, no answer is made for it, and no argument either, that would take memory.
    [[nodiscard]] virtual bool keepsAnswers() const { return false; }
    /// The call that began last has been passed on, and answered so.
    virtual void end(const CallValues& /*answer*/) {}
    /// The call that began last has been passed on, and has thrown what the thread is handling now.
    virtual void threw() noexcept {}
    /// A number for an object that the library got by a call, such as a product; none has the same number.
    std::int64_t nextObject() { return ++objects_; }

private:
    std::int64_t objects_ = 0;
};

template <class... Values>
[[nodiscard]] CallValues callValues(const Values&... values)
{
    const auto part = [](const auto& value) -> CallValue {
        using Value = std::decay_t<decltype(value)>;
        if constexpr (std::is_same_v<Value, Currency>) {
            return value;
        } else if constexpr (std::is_enum_v<Value> || std::is_integral_v<Value>) {
            return static_cast<std::int64_t>(value);
        } else {
            return std::string(value);
        }
    };
    CallValues parts;
    parts.reserve(sizeof...(values));
    (parts.push_back(part(values)), ...);
    return parts;
}

/// Part `at` of an answer; a default value where the answer has no such part, as that of a damaged recording.
template <class Value>
[[nodiscard]] Value partOf(const CallValues& answer, std::size_t at = 0)
{
    using Held = std::conditional_t<std::is_integral_v<Value> || std::is_enum_v<Value>, std::int64_t, Value>;
    const auto* const held = at < answer.size() ? std::get_if<Held>(&answer[at]) : nullptr;
    return held ? static_cast<Value>(*held) : Value();
}

/// Whether the call only asks, so that it may be made at any time, for instance while a window is painted.
[[nodiscard]] inline bool isQuestion(std::string_view name)
{
    return name.starts_with("locale.") || name == "catalogue.summary" || name == "catalogue.mostMatches";
}

[[nodiscard]] inline CallValues valuesOf(CallArguments arguments)
{
    CallValues values;
    values.reserve(arguments.size());
    for (const CallArgument& argument : arguments) {
        std::visit(
            [&values](const auto& value) {
                if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::string_view>) {
                    values.emplace_back(std::string(value));
                } else {
                    values.emplace_back(value);
                }
            },
            argument.value());
    }
    return values;
}

/// Makes a call that is watched. `work` passes it on and returns the result, `toParts` makes an answer of the result,
/// and `fromParts` a result of the answer that a watch has given in place of the one who is called.
template <class Work, class ToParts, class FromParts>
auto watchedCall(CallWatch& watch, std::string_view name, CallArguments arguments, const Work& work,
                 const ToParts& toParts, const FromParts& fromParts)
{
    CallValues answer;
    if (!watch.begin(name, arguments, answer)) {
        return fromParts(answer);
    }
    try {
        auto result = work();
        if (watch.keepsAnswers()) {
            watch.end(toParts(result));
        }
        return result;
    } catch (...) {
        watch.threw();
        throw;
    }
}

/// A call without an answer.
template <class Work>
void watchedCall(CallWatch& watch, std::string_view name, CallArguments arguments, const Work& work)
{
    CallValues answer;
    if (watch.begin(name, arguments, answer)) {
        try {
            work();
        } catch (...) {
            watch.threw();
            throw;
        }
        if (watch.keepsAnswers()) {
            watch.end({});
        }
    }
}

} // namespace orvan::outside

// UserText: a text for the user that can be shown in another language.
//
// The logic writes its texts in English. A UserText keeps the English sentence apart from the names and numbers that
// stand in it, so that whoever shows the text can translate the sentence and put the names in the order that the other
// language needs:
//
//     userText("There is no product at position %1 of %2", index, count)
//     countedText(count, "1 product", "%n products")
//
// The English sentence is the key of its translation. "%1" to "%9" stand for the parts, "%n" for the number of a
// counted text. Texts are UTF-8. Thread: any.
#pragma once

#include "orvan/core_export.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace orvan {

class UserText;
/// One text behind another.
ORVAN_CORE_EXPORT UserText operator+(UserText first, UserText second);

class ORVAN_CORE_EXPORT UserText {
public:
    /// Translates an English sentence, and returns nothing where it has no translation. The number is that of a counted
    /// text, whose key is the sentence for many; "%n" may stay in the result.
    using Translation =
        std::function<std::optional<std::string>(std::string_view english, std::optional<std::int64_t> count)>;

    UserText() = default;
    /// A text that is shown as it is in every language: a name, a number, the text of a system.
    UserText(std::string verbatim) : text_(std::move(verbatim)) {}
    UserText(std::string_view verbatim) : text_(verbatim) {}
    UserText(const char* verbatim) : text_(verbatim) {}
    template <class Number, std::enable_if_t<std::is_integral_v<Number>, int> = 0>
    UserText(Number verbatim) : UserText(numberText(static_cast<std::int64_t>(verbatim)))
    {
    }

    [[nodiscard]] std::string english() const { return in({}); }
    [[nodiscard]] std::string in(const Translation& translation) const;
    [[nodiscard]] bool empty() const { return text_.empty(); }

    friend UserText operator+(UserText first, UserText second);
    friend bool operator==(const UserText& text, std::string_view english) { return text.english() == english; }

private:
    static std::string numberText(std::int64_t number);
    friend UserText sentenceOf(std::string_view english, std::vector<UserText> parts);
    friend UserText countedText(std::int64_t count, std::string_view one, std::string_view many,
                                std::vector<UserText> parts);

    bool sentence_ = false; ///< `text_` is an English sentence, and not a text that is shown as it is.
    std::string text_;
    std::string one_; ///< Of a counted text: the sentence for one.
    std::optional<std::int64_t> count_;
    std::vector<UserText> parts_;
};

[[nodiscard]] ORVAN_CORE_EXPORT UserText sentenceOf(std::string_view english, std::vector<UserText> parts);

template <class... Parts>
[[nodiscard]] UserText userText(std::string_view english, Parts&&... parts)
{
    return sentenceOf(english, {UserText(std::forward<Parts>(parts))...});
}

/// `one` is the sentence for the number 1, and `many` the one for all other numbers.
[[nodiscard]] ORVAN_CORE_EXPORT UserText countedText(std::int64_t count, std::string_view one, std::string_view many,
                                                     std::vector<UserText> parts = {});

} // namespace orvan

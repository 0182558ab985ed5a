#include "orvan/base/UserText.h"

#include <cstdio>

namespace orvan {

std::string UserText::numberText(std::int64_t number)
{
    // std::to_string is not used, because it would leave a unique symbol in each component library (the GNU standard
    // library's table of digits), and a library with such a symbol is never unloaded.
    char digits[24] = {};
    std::snprintf(digits, sizeof digits, "%lld", static_cast<long long>(number));
    return digits;
}

std::string UserText::in(const Translation& translation) const
{
    if (!sentence_) {
        return text_;
    }
    std::optional<std::string> translated = translation ? translation(text_, count_) : std::nullopt;
    const std::string& pattern = translated ? *translated : count_ == 1 ? one_ : text_;
    std::string text;
    // Parts are put in while the pattern is read once, because a part may itself contain "%2".
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const char next = pattern[at] == '%' && at + 1 < pattern.size() ? pattern[at + 1] : '\0';
        const auto part = static_cast<std::size_t>(next - '1');
        if (next == 'n' && count_) {
            text.append(numberText(*count_));
            ++at;
        } else if (next >= '1' && part < parts_.size()) {
            text.append(parts_[part].in(translation));
            ++at;
        } else {
            text.push_back(pattern[at]);
        }
    }
    return text;
}

UserText operator+(UserText first, UserText second)
{
    return sentenceOf("%1%2", {std::move(first), std::move(second)});
}

UserText sentenceOf(std::string_view english, std::vector<UserText> parts)
{
    UserText text;
    text.sentence_ = true;
    text.text_ = english;
    text.parts_ = std::move(parts);
    return text;
}

UserText countedText(std::int64_t count, std::string_view one, std::string_view many, std::vector<UserText> parts)
{
    UserText text = sentenceOf(many, std::move(parts));
    text.one_ = one;
    text.count_ = count;
    return text;
}

} // namespace orvan

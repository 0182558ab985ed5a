#include "orvan/ui/TextEntry.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace orvan::ui {

namespace {

constexpr std::int16_t kUnknownCharacter = '?';
constexpr std::string_view kReturnAndNewline = "\r\n";
/// "\r\n" comes before "\r", so that it counts as one line end. The last two are U+2028 and U+2029.
constexpr std::string_view kLineEnds[] = {kReturnAndNewline, "\n", "\r", "\xE2\x80\xA8", "\xE2\x80\xA9"};

void requireNotNegative(const std::string& control, std::int32_t value)
{
    if (value < 0) {
        throw RuntimeError(ErrorNumber::invalidPropertyValue, {},
                           std::string(control).append(": a position or length cannot be negative"));
    }
}

} // namespace

std::string_view lineEndOf(std::string_view text)
{
    return text.find(kReturnAndNewline) == std::string_view::npos ? "\n" : kReturnAndNewline;
}

std::string fitForEntry(std::string_view text, std::string_view lineEnd, std::optional<std::int64_t> capacity)
{
    std::int64_t left = capacity.value_or(std::numeric_limits<std::int64_t>::max());
    std::string fitted;
    for (std::size_t at = 0; at < text.size();) {
        const auto* const end = std::find_if(std::begin(kLineEnds), std::end(kLineEnds),
                                             [&](std::string_view e) { return text.substr(at, e.size()) == e; });
        const bool ends = end != std::end(kLineEnds);
        const std::string_view taken = text.substr(at, ends ? end->size() : characterSize(text, at));
        const std::string_view put = ends ? lineEnd : taken;
        left -= ends ? static_cast<std::int64_t>(characterCount(put)) : 1;
        if (left < 0) {
            break;
        }
        fitted += put;
        at += taken.size();
    }
    return fitted;
}

void TextEntry::setText(std::string_view text)
{
    if (maxLength_ > 0) {
        text = firstCharacters(text, static_cast<std::size_t>(maxLength_));
    }
    const bool changed = text != text_;
    replaceText(text);
    if (changed) {
        raise(onChange);
    }
}

void TextEntry::replaceText(std::string_view text)
{
    text_ = text; // assigned, so that the capacity is reused
    selectionStart_ = 0;
    selectionLength_ = 0;
    textChanged();
    doSetText();
}

void TextEntry::setMaxLength(std::int32_t characters)
{
    requireNotNegative(name(), characters);
    maxLength_ = characters;
    doSetMaxLength();
}

void TextEntry::setSelectionStart(std::int32_t position)
{
    requireNotNegative(name(), position);
    selectionStart_ = std::min(position, static_cast<std::int32_t>(characterCount(text_)));
    selectionLength_ = 0;
    doSelect();
}

void TextEntry::setSelectionLength(std::int32_t length)
{
    requireNotNegative(name(), length);
    selectionLength_ = std::min(length, static_cast<std::int32_t>(characterCount(text_)) - selectionStart_);
    doSelect();
}

void TextEntry::userChangedText(std::string text)
{
    if (text != text_) {
        text_ = std::move(text);
        textChanged();
        raise(onChange);
    }
}

void TextEntry::userSelected(std::int32_t start, std::int32_t length)
{
    selectionStart_ = start;
    selectionLength_ = length;
}

char32_t TextEntry::userPressedKey(char32_t character)
{
    const bool fits = character <= static_cast<char32_t>(std::numeric_limits<std::int16_t>::max());
    const std::int16_t offered = fits ? static_cast<std::int16_t>(character) : kUnknownCharacter;
    std::int16_t KeyAscii = offered;
    raise(onKeyPress, KeyAscii);
    return KeyAscii == offered ? character : static_cast<char32_t>(std::max<std::int16_t>(KeyAscii, 0));
}

} // namespace orvan::ui

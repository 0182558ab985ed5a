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

bool isInsideCharacter(std::string_view text, std::size_t at)
{
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80;
}

/// What the user has changed, as EventKind::typed has it: beginning and end that both texts share are left out.
Event changeOf(std::string_view before, std::string_view after, Event event)
{
    const auto differs = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    auto same = static_cast<std::size_t>(differs.first - before.begin());
    while (same > 0 && same < std::max(before.size(), after.size()) &&
           (isInsideCharacter(before, same) || isInsideCharacter(after, same))) {
        --same;
    }
    std::size_t tail = 0;
    const std::size_t most = std::min(before.size(), after.size()) - same;
    while (tail < most && before[before.size() - tail - 1] == after[after.size() - tail - 1]) {
        ++tail;
    }
    while (tail > 0 &&
           (isInsideCharacter(before, before.size() - tail) || isInsideCharacter(after, after.size() - tail))) {
        --tail;
    }
    event.first = static_cast<std::int32_t>(characterCount(before.substr(0, same)));
    event.second = static_cast<std::int32_t>(characterCount(before.substr(same, before.size() - tail - same)));
    event.text = after.substr(same, after.size() - tail - same);
    return event;
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
        const Tapped tapped(surface(), [&] { return changeOf(text_, text, told(EventKind::typed)); });
        text_ = std::move(text);
        textChanged();
        raise(onChange);
    }
}

void TextEntry::userSelected(std::int32_t start, std::int32_t length)
{
    if (start == selectionStart_ && length == selectionLength_) {
        return;
    }
    const Tapped tapped(surface(), [&] { return told(EventKind::selected, start, length); });
    selectionStart_ = start;
    selectionLength_ = length;
}

void TextEntry::play(const Event& event)
{
    if (event.kind == EventKind::key) {
        static_cast<void>(userPressedKey(static_cast<char32_t>(event.first)));
    } else if (event.kind == EventKind::selected) {
        userSelected(event.first, event.second);
        doSelect();
    } else if (event.kind == EventKind::typed) {
        const std::string_view old = text_;
        const auto start = static_cast<std::size_t>(std::max(event.first, 0));
        const std::string_view before = firstCharacters(old, start);
        const std::string_view rest =
            old.substr(firstCharacters(old, start + static_cast<std::size_t>(std::max(event.second, 0))).size());
        // A platform shows the text before it reports it, and so does this: the handler may set another one.
        std::string text = std::string(before).append(event.text).append(rest);
        text_.swap(text);
        doSetText();
        doSelect();
        text_.swap(text);
        userChangedText(std::move(text));
    } else {
        raiseUnplayable(name(), event);
    }
}

char32_t TextEntry::userPressedKey(char32_t character)
{
    const bool fits = character <= static_cast<char32_t>(std::numeric_limits<std::int16_t>::max());
    const std::int16_t offered = fits ? static_cast<std::int16_t>(character) : kUnknownCharacter;
    std::int16_t KeyAscii = offered;
    const Tapped tapped(surface(), [&] { return told(EventKind::key, static_cast<std::int32_t>(character)); });
    raise(onKeyPress, KeyAscii);
    return KeyAscii == offered ? character : static_cast<char32_t>(std::max<std::int16_t>(KeyAscii, 0));
}

} // namespace orvan::ui

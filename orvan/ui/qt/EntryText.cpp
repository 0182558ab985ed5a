#include "orvan/ui/qt/EntryText.h"

#include "orvan/base/Text.h"
#include "orvan/ui/TextEntry.h"
#include "orvan/ui/qt/QtText.h"

#include <algorithm>
#include <limits>

namespace orvan::qt {

namespace {

constexpr std::int32_t kAnyCharacter = std::numeric_limits<std::int32_t>::max();
constexpr qsizetype kAnyPosition = std::numeric_limits<qsizetype>::max();

/// How many UTF-16 units are the same at the beginning of two texts, at most `most`. A character of two units counts
/// only as a whole.
template <class Iterator>
qsizetype commonUnits(Iterator one, Iterator other, qsizetype most, bool (QChar::*isCut)() const)
{
    qsizetype count = std::mismatch(one, one + most, other).first - one;
    if (count > 0 && ((*(one + (count - 1))).*isCut)()) {
        --count;
    }
    return count;
}

} // namespace

void EntryText::set(std::string_view text, const QString& shown)
{
    shown_ = shown;
    lineEnd_ = ui::lineEndOf(text);
}

std::string EntryText::edited(std::string_view text, const QString& shown) const
{
    const qsizetype shorter = std::min(shown.size(), shown_.size());
    const qsizetype before = commonUnits(shown.cbegin(), shown_.cbegin(), shorter,
                                         static_cast<bool (QChar::*)() const>(&QChar::isHighSurrogate));
    const qsizetype after = commonUnits(shown.crbegin(), shown_.crbegin(), shorter - before,
                                        static_cast<bool (QChar::*)() const>(&QChar::isLowSurrogate));
    const Place end = find(text, kAnyCharacter, kAnyPosition);
    // If the lengths differ, the widget held another text than `text`: then all of the widget's text is taken.
    const bool mapped = end.position == shown_.size();
    const qsizetype from = mapped ? before : 0;
    std::string middle = fromQt(shown.mid(from, mapped ? shown.size() - before - after : -1));
    if (lines_) {
        middle = ui::fitForEntry(middle, lineEnd_, {});
    }
    if (!mapped) {
        return middle;
    }
    const std::size_t keep = find(text, kAnyCharacter, before).byte;
    const std::size_t resume = find(text, kAnyCharacter, shown_.size() - after).byte;
    return std::string(text.substr(0, keep)).append(middle).append(text.substr(resume));
}

std::int32_t EntryText::characterAt(std::string_view text, qsizetype position) const
{
    return find(text, kAnyCharacter, position).character;
}

qsizetype EntryText::positionAt(std::string_view text, std::int32_t character) const
{
    return find(text, character, kAnyPosition).position;
}

EntryText::Place EntryText::find(std::string_view text, std::int32_t character, qsizetype position) const
{
    Place place;
    while (place.byte < text.size() && place.character < character && place.position < position) {
        if (lines_ && text.substr(place.byte, 2) == "\r\n") {
            place = {place.byte + 2, place.character + 2, place.position + 1};
            continue;
        }
        const std::size_t size = characterSize(text, place.byte);
        place = {place.byte + size, place.character + 1, place.position + (size == 4 ? 2 : 1)};
    }
    return place;
}

} // namespace orvan::qt

#include "orvan/ui/qt/EntryText.h"

#include "orvan/base/Text.h"
#include "orvan/ui/TextEntry.h"
#include "orvan/ui/qt/QtText.h"

#include <algorithm>
#include <limits>

namespace orvan::qt {

namespace {

constexpr std::int32_t kAnyCharacter = std::numeric_limits<std::int32_t>::max();
constexpr qsizetype kMarkDistance = 64;
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
    forgetPlaces();
}

WidgetChange EntryText::changeTo(const QString& shown) const
{
    return trimmed({0, shown_.size(), shown});
}

WidgetChange EntryText::trimmed(const WidgetChange& change) const
{
    const QStringView former = QStringView(shown_).mid(change.from, change.removed);
    const QStringView now = change.added;
    const qsizetype shorter = std::min(former.size(), now.size());
    const qsizetype before = commonUnits(now.cbegin(), former.cbegin(), shorter,
                                         static_cast<bool (QChar::*)() const>(&QChar::isHighSurrogate));
    const qsizetype after = commonUnits(now.crbegin(), former.crbegin(), shorter - before,
                                        static_cast<bool (QChar::*)() const>(&QChar::isLowSurrogate));
    return {change.from + before, former.size() - before - after,
            now.mid(before, now.size() - before - after).toString()};
}

std::string EntryText::edit(std::string_view text, const WidgetChange& change)
{
    const Place end = endOf(text);
    // If the lengths differ, the widget held another text than `text`: then all of the widget's text is taken.
    const bool mapped = end.position == shown_.size();
    shown_.replace(change.from, change.removed, change.added);
    std::string middle = fromQt(mapped ? change.added : shown_);
    if (lines_) {
        middle = ui::fitForEntry(middle, lineEnd_, {});
    }
    if (!mapped) {
        forgetPlaces();
        return middle;
    }
    const Place keep = find(text, kAnyCharacter, change.from);
    const Place resume = find(text, kAnyCharacter, change.from + change.removed);
    if (countsAlways_) {
        forgetPlaces();
    } else {
        marks_.erase(
            std::find_if(marks_.begin(), marks_.end(), [&](const Place& mark) { return mark.byte > keep.byte; }),
            marks_.end());
        end_ = {end.byte - (resume.byte - keep.byte) + middle.size(),
                end.character - (resume.character - keep.character) + static_cast<std::int32_t>(characterCount(middle)),
                shown_.size()};
    }
    std::string edited;
    edited.reserve(keep.byte + middle.size() + (text.size() - resume.byte));
    return edited.append(text.substr(0, keep.byte)).append(middle).append(text.substr(resume.byte));
}

std::int32_t EntryText::characterAt(std::string_view text, qsizetype position) const
{
    return find(text, kAnyCharacter, position).character;
}

qsizetype EntryText::positionAt(std::string_view text, std::int32_t character) const
{
    return find(text, character, kAnyPosition).position;
}

EntryText::Place EntryText::next(std::string_view text, Place place) const
{
    if (lines_ && text.substr(place.byte, 2) == "\r\n") {
        return {place.byte + 2, place.character + 2, place.position + 1};
    }
    const std::size_t size = characterSize(text, place.byte);
    return {place.byte + size, place.character + 1, place.position + (size == 4 ? 2 : 1)};
}

EntryText::Place EntryText::find(std::string_view text, std::int32_t character, qsizetype position) const
{
    const auto reached = [&](const Place& place) { return place.character >= character || place.position >= position; };
    if (end_ && !countsAlways_ && !reached(*end_)) {
        return *end_;
    }
    const auto beyond = std::find_if(marks_.begin(), marks_.end(), reached);
    Place place = beyond == marks_.begin() ? Place() : *(beyond - 1);
    const bool marks = beyond == marks_.end() && !countsAlways_;
    while (place.byte < text.size() && !reached(place)) {
        place = next(text, place);
        if (marks && place.position - (marks_.empty() ? 0 : marks_.back().position) >= kMarkDistance) {
            marks_.push_back(place);
        }
    }
    return place;
}

EntryText::Place EntryText::endOf(std::string_view text) const
{
    if (end_ && !countsAlways_) {
        return *end_;
    }
    Place place;
    countsAlways_ = false;
    while (place.byte < text.size()) {
        const Place after = next(text, place);
        const char first = text[place.byte];
        const bool stray = after.byte == place.byte + 1 && static_cast<unsigned char>(first) >= 0x80;
        countsAlways_ = countsAlways_ || stray || (first == '\r' && after.byte == place.byte + 1);
        place = after;
    }
    if (countsAlways_) {
        marks_.clear();
    }
    end_ = place;
    return place;
}

void EntryText::forgetPlaces()
{
    marks_.clear();
    end_.reset();
    countsAlways_ = false;
}

} // namespace orvan::qt

// EntryText: maps between the text of a box and what its widget holds for it.
//
// A widget counts in UTF-16 units, knows one line end only, and cannot hold bytes that are not UTF-8. So the library's
// text is kept as it was set, and only the part that the user changes is replaced: a "\r\n" or a stray byte elsewhere
// stays as it is. New line ends are those that ui::lineEndOf gives. Thread: the user-interface thread.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvan::qt {

/// A change of the widget's text: `removed` units from `from` on have become `added`.
struct WidgetChange {
    qsizetype from = 0;
    qsizetype removed = 0;
    QString added = {};
};

class EntryText {
public:
    /// `lines` says that the widget has several lines; its text then has U+2029 for each line end.
    explicit EntryText(bool lines) : lines_(lines) {}

    /// The line end that the library's text gets when the user types or pastes one.
    std::string_view lineEnd() const { return lineEnd_; }
    /// Records that the widget holds `shown` for the library's `text`.
    void set(std::string_view text, const QString& shown);
    const QString& shown() const { return shown_; }

    /// What has changed between shown() and `shown`.
    [[nodiscard]] WidgetChange changeTo(const QString& shown) const;
    /// The change without its beginning and its end, as far as they are the same before and after it.
    [[nodiscard]] WidgetChange trimmed(const WidgetChange& change) const;
    /// Returns the library's new text after the user has changed the widget's, and records it.
    [[nodiscard]] std::string edit(std::string_view text, const WidgetChange& change);

    // In the following, `text` is the one that was recorded last.

    /// Convert between a position in the widget and a number of characters of `text`; beyond the end, the end is taken.
    std::int32_t characterAt(std::string_view text, qsizetype position) const;
    qsizetype positionAt(std::string_view text, std::int32_t character) const;
    std::int32_t characters(std::string_view text) const { return endOf(text).character; }

private:
    /// One place in a text, counted in bytes, in characters and in the widget's UTF-16 units.
    struct Place {
        std::size_t byte = 0;
        std::int32_t character = 0;
        qsizetype position = 0;
    };

    /// The first place that has reached `character` or `position`; the end of the text if none has.
    Place find(std::string_view text, std::int32_t character, qsizetype position) const;
    Place endOf(std::string_view text) const;
    /// The place after the character or line end at `place`.
    Place next(std::string_view text, Place place) const;
    void forgetPlaces();

    bool lines_;
    QString shown_;
    std::string lineEnd_ = "\n";
    // Known places, so that a key in a long text does not count all of it. A text in which bytes can become parts of
    // one another when text between them goes, because they are not UTF-8 or a '\r' stands alone, is always counted.
    mutable std::vector<Place> marks_;
    mutable std::optional<Place> end_;
    mutable bool countsAlways_ = false; ///< Set when the end is sought.
};

} // namespace orvan::qt

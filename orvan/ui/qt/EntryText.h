// EntryText: maps between the text of a box and what its widget holds for it.
//
// A widget counts in UTF-16 units, knows one line end only, and cannot hold bytes that are not UTF-8. So the library's
// text is kept as it was set, and only the part that the user changes is replaced: a "\r\n" or a stray byte elsewhere
// stays as it is. New line ends are those that ui::lineEndOf gives. Thread: the user-interface thread.
#pragma once

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

namespace orvan::qt {

class EntryText {
public:
    /// `lines` says that the widget has several lines; its text then has U+2029 for each line end.
    explicit EntryText(bool lines) : lines_(lines) {}

    /// The line end that the library's text gets when the user types or pastes one.
    std::string_view lineEnd() const { return lineEnd_; }
    /// Records that the widget holds `shown` for the library's `text`.
    void set(std::string_view text, const QString& shown);
    /// Records that the widget holds `shown` after an edit of the user.
    void keep(const QString& shown) { shown_ = shown; }
    const QString& shown() const { return shown_; }

    /// The library's new text after the user has edited `text`, so that the widget now holds `shown`.
    [[nodiscard]] std::string edited(std::string_view text, const QString& shown) const;

    /// Convert between a position in the widget and a number of characters of `text`; beyond the end, the end is taken.
    std::int32_t characterAt(std::string_view text, qsizetype position) const;
    qsizetype positionAt(std::string_view text, std::int32_t character) const;

private:
    /// One place in a text, counted in bytes, in characters and in the widget's UTF-16 units.
    struct Place {
        std::size_t byte = 0;
        std::int32_t character = 0;
        qsizetype position = 0;
    };

    /// The first place that has reached `character` or `position`; the end of the text if none has.
    Place find(std::string_view text, std::int32_t character, qsizetype position) const;

    bool lines_;
    QString shown_;
    std::string lineEnd_ = "\n";
};

} // namespace orvan::qt

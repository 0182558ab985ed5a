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
    /// `lines`: the widget has several, and shows each line end as U+2029.
    explicit EntryText(bool lines) : lines_(lines) {}

    /// What a line end that is typed or pasted becomes.
    std::string_view lineEnd() const { return lineEnd_; }
    /// The widget shows `text` as `shown`.
    void set(std::string_view text, const QString& shown);
    /// The user made the widget hold `shown`.
    void keep(const QString& shown) { shown_ = shown; }
    const QString& shown() const { return shown_; }

    /// The library's text once the widget holds `shown`, made from `text` by the user.
    [[nodiscard]] std::string edited(std::string_view text, const QString& shown) const;

    /// Characters of `text` before the widget's position, and the other way round; at most the end.
    std::int32_t characterAt(std::string_view text, qsizetype position) const;
    qsizetype positionAt(std::string_view text, std::int32_t character) const;

private:
    /// One place in a text, counted in three ways.
    struct Place {
        std::size_t byte = 0;
        std::int32_t character = 0;
        qsizetype position = 0;
    };

    /// The first place that is at `character` or at `position`, or the end.
    Place find(std::string_view text, std::int32_t character, qsizetype position) const;

    bool lines_;
    QString shown_;
    std::string lineEnd_ = "\n";
};

} // namespace orvan::qt

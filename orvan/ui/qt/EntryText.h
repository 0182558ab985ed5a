// EntryText: a box's text as its widget holds it, against the library's text that it stands for.
//
// A widget counts in UTF-16 units and knows one line end only; bytes that are not UTF-8 it cannot hold
// at all. So the library's text is kept as it was set, and what the user changes is cut into it where
// it was changed: a "\r\n" or a stray byte elsewhere stays as it is. New line ends are those that
// ui::lineEndOf gives. Thread: the user-interface thread.
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

    /// What a line end typed or pasted now turns into.
    std::string_view lineEnd() const { return lineEnd_; }
    /// The widget shows `text` as `shown`.
    void set(std::string_view text, const QString& shown);
    /// The user made the widget hold `shown`.
    void keep(const QString& shown) { shown_ = shown; }
    const QString& shown() const { return shown_; }

    /// The library's text once the widget holds `shown`, made from `text` by the user.
    std::string edited(std::string_view text, const QString& shown) const;

    /// Characters of `text` before the widget's position, and the other way round; at most the end.
    std::int32_t characterAt(std::string_view text, qsizetype position) const;
    qsizetype positionAt(std::string_view text, std::int32_t character) const;

private:
    /// One place in a text, in the three ways of counting.
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

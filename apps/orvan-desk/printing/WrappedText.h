// WrappedText: a text in lines of a given width, each of the same height.
//
// Lengths are in units of 1/1200 inch. At that size a font's measures do not depend on the device, so that a quote has
// the same lines and pages in the preview, on a printer and in a file. Thread: the user-interface thread.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <QTextLayout>

#include <memory>
#include <vector>

class QPainter;

namespace orvan::desk {

inline constexpr int kUnitsPerInch = 1200;

/// A font with its measures that are needed often.
struct PrintFont {
    PrintFont(double points, bool bold);

    QFont font;
    QFontMetricsF metrics;
    double lineHeight;
};

enum class TextSide { left, right };

class WrappedText {
public:
    /// The text's lines end at its line feeds and where the width ends; a word that is wider than that is broken.
    WrappedText(const QString& text, const PrintFont& font, double width, TextSide side);

    std::size_t lines() const { return lines_.size(); }
    /// Draws the lines `first` up to, but not including, `end`; the first of these begins at `top`.
    void draw(QPainter& painter, QPointF top, std::size_t first, std::size_t end) const;

private:
    struct Line {
        QTextLayout* paragraph;
        int index;
    };

    double lineHeight_;
    double ascent_;
    std::vector<std::unique_ptr<QTextLayout>> paragraphs_;
    std::vector<Line> lines_;
};

/// How many lines a WrappedText has; 0 for an empty text. Usually faster than to make one.
[[nodiscard]] std::size_t countLines(const QString& text, const PrintFont& font, double width);

} // namespace orvan::desk

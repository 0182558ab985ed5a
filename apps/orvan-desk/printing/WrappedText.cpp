#include "WrappedText.h"

#include <QPainter>
#include <QTextOption>

#include <algorithm>

namespace orvan::desk {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kLineSpacing = 1.2;

QFont printFont(double points, bool bold)
{
    // Not the application's font, which depends on the desktop: the paper does not, and there may be no desktop.
    QFont font(QStringLiteral("Sans Serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, qRound(points * kUnitsPerInch / kPointsPerInch)));
    font.setBold(bold);
    return font;
}

} // namespace

PrintFont::PrintFont(double points, bool bold)
    : font(printFont(points, bold)), metrics(font), lineHeight((metrics.ascent() + metrics.descent()) * kLineSpacing)
{
}

WrappedText::WrappedText(const QString& text, const PrintFont& font, double width, TextSide side)
    : lineHeight_(font.lineHeight), ascent_((font.lineHeight + font.metrics.ascent() - font.metrics.descent()) / 2)
{
    if (text.isEmpty()) {
        return;
    }
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LayoutDirectionAuto); // each text in its own direction
    option.setAlignment(Qt::AlignAbsolute | (side == TextSide::left ? Qt::AlignLeft : Qt::AlignRight));
    for (const QString& paragraph : text.split(u'\n')) {
        auto& layout = *paragraphs_.emplace_back(std::make_unique<QTextLayout>(paragraph, font.font));
        layout.setTextOption(option);
        layout.setCacheEnabled(true);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            lines_.push_back({&layout, line.lineNumber()});
        }
        layout.endLayout();
    }
}

void WrappedText::draw(QPainter& painter, QPointF top, std::size_t first, std::size_t end) const
{
    for (std::size_t i = first; i < std::min(end, lines_.size()); ++i) {
        const QTextLine line = lines_[i].paragraph->lineAt(lines_[i].index);
        const double baseline = top.y() + static_cast<double>(i - first) * lineHeight_ + ascent_;
        line.draw(&painter, QPointF(top.x(), baseline - line.ascent() - line.y()));
    }
}

std::size_t countLines(const QString& text, const PrintFont& font, double width)
{
    if (text.isEmpty()) {
        return 0;
    }
    // The longest text that is measured: a longer one has more lines anyway, and measuring it takes time.
    constexpr qsizetype kMostMeasured = 200;
    constexpr double kSlack = 2; // units, because a layout may measure a little more
    if (text.size() <= kMostMeasured && !text.contains(u'\n') &&
        font.metrics.horizontalAdvance(text) + kSlack < width) {
        return 1;
    }
    return WrappedText(text, font, width, TextSide::left).lines();
}

} // namespace orvan::desk

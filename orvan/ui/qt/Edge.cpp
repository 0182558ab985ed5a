#include "orvan/ui/qt/Edge.h"

#include "orvan/ui/qt/Colours.h"

#include <QPainter>
#include <QProxyStyle>
#include <QWidget>

namespace orvan::qt {

namespace {

constexpr double kCorner = 2;

bool isFusion(const QStyle* style)
{
    while (const auto* const proxy = qobject_cast<const QProxyStyle*>(style)) {
        style = proxy->baseStyle();
    }
    return style->inherits("QFusionStyle");
}

} // namespace

void paintEdge(QWidget& widget)
{
    if (!widget.isEnabled() || widget.hasFocus() || !isFusion(widget.style())) {
        return;
    }
    const QPalette& palette = widget.palette();
    const QColor window = palette.color(QPalette::Window);
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(visibleOn({window, palette.color(QPalette::Button), palette.color(QPalette::Base)}, window,
                             palette.color(QPalette::WindowText), kEdgeContrast));
    painter.drawRoundedRect(QRectF(widget.rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

} // namespace orvan::qt

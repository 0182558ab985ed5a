#include "WindowIcon.h"

#include "DrawnPicture.h"

#include <QPainter>
#include <QPainterPath>

namespace orvan::desk {

namespace {

constexpr double kSize = 256; ///< Of the drawing, whose coordinates are used here.
constexpr double kCorner = 44;
constexpr double kSmallCorner = 16; ///< The diameter of the sheet's corners.
constexpr double kQuarter = -90;    // degrees, clockwise

/// A sheet with a folded corner at its upper right.
QPainterPath sheet()
{
    QPainterPath path(QPointF(56, 16));
    path.lineTo(160, 16);
    path.lineTo(208, 64);
    path.arcTo(192, 224, kSmallCorner, kSmallCorner, 0, kQuarter);
    path.arcTo(48, 224, kSmallCorner, kSmallCorner, 270, kQuarter);
    path.arcTo(48, 16, kSmallCorner, kSmallCorner, 180, kQuarter);
    path.closeSubpath();
    return path;
}

QPainterPath fold()
{
    QPainterPath path(QPointF(160, 16));
    path.lineTo(208, 64);
    path.arcTo(160, 48, kSmallCorner, kSmallCorner, 270, kQuarter);
    path.closeSubpath();
    return path;
}

class WindowPicture final : public DrawnPicture {
public:
    /// The sizes that a window gets. Without this list, Qt would also draw the icon twice in 128 pixels before the
    /// window shows.
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        return {{16, 16}, {32, 32}, {64, 64}};
    }

    QIconEngine* clone() const override { return new WindowPicture(*this); }

private:
    void draw(QPainter& painter, const QRect& area) const override
    {
        painter.translate(area.topLeft());
        painter.scale(area.width() / kSize, area.height() / kSize);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0x2f6fde));
        painter.drawRoundedRect(QRectF(0, 0, kSize, kSize), kCorner, kCorner);
        painter.fillPath(sheet(), QColor(0xffffff));
        painter.fillPath(fold(), QColor(0xc3d6f6));
        for (const QRect& name : {QRect(64, 64, 64, 16), QRect(64, 96, 80, 16), QRect(64, 128, 64, 16)}) {
            painter.fillRect(name, QColor(0x8794a5));
        }
        for (const QRect& amount : {QRect(160, 96, 32, 16), QRect(160, 128, 32, 16)}) {
            painter.fillRect(amount, QColor(0x44546a));
        }
        painter.fillRect(QRect(64, 176, 128, 32), QColor(0xf2a516)); // the total
    }
};

} // namespace

QIcon windowIcon()
{
    return QIcon(new WindowPicture); // QIcon owns its engine
}

} // namespace orvan::desk

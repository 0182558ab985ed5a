#include "orvan/ui/qt/ButtonPicture.h"

#include "orvan/base/RuntimeError.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <string>

namespace orvan::qt {

namespace {

// Shapes are drawn on a field of 16 by 16. Straight lines of odd width run through the middle of a
// pixel and those of even width along its edge, so that they stay sharp at whole scales.

struct Picture {
    std::string_view name;
    float pen;
    void (*draw)(QPainterPath& path);
};

void drawAdd(QPainterPath& path)
{
    path.moveTo(8, 3);
    path.lineTo(8, 13);
    path.moveTo(3, 8);
    path.lineTo(13, 8);
}

void drawBin(QPainterPath& path)
{
    path.moveTo(2.5, 4.5); // lid and handle
    path.lineTo(13.5, 4.5);
    path.moveTo(6.5, 4.5);
    path.lineTo(6.5, 2.5);
    path.lineTo(9.5, 2.5);
    path.lineTo(9.5, 4.5);
    path.moveTo(3.5, 4.5); // can
    path.lineTo(4.5, 13.5);
    path.lineTo(11.5, 13.5);
    path.lineTo(12.5, 4.5);
    path.moveTo(6.5, 7); // ribs
    path.lineTo(6.5, 11);
    path.moveTo(9.5, 7);
    path.lineTo(9.5, 11);
}

void drawUp(QPainterPath& path)
{
    path.moveTo(8, 13);
    path.lineTo(8, 4);
    path.moveTo(4, 7.5);
    path.lineTo(8, 3.5);
    path.lineTo(12, 7.5);
}

void drawDown(QPainterPath& path)
{
    path.moveTo(8, 3);
    path.lineTo(8, 12);
    path.moveTo(4, 8.5);
    path.lineTo(8, 12.5);
    path.lineTo(12, 8.5);
}

void drawPrevious(QPainterPath& path)
{
    path.moveTo(10, 3.5);
    path.lineTo(5.5, 8);
    path.lineTo(10, 12.5);
}

void drawNext(QPainterPath& path)
{
    path.moveTo(6, 3.5);
    path.lineTo(10.5, 8);
    path.lineTo(6, 12.5);
}

void drawFirst(QPainterPath& path)
{
    path.moveTo(4, 3);
    path.lineTo(4, 13);
    path.moveTo(12, 3.5);
    path.lineTo(7.5, 8);
    path.lineTo(12, 12.5);
}

void drawLast(QPainterPath& path)
{
    path.moveTo(12, 3);
    path.lineTo(12, 13);
    path.moveTo(4, 3.5);
    path.lineTo(8.5, 8);
    path.lineTo(4, 12.5);
}

void drawSave(QPainterPath& path)
{
    path.moveTo(2.5, 2.5); // disk with a cut corner
    path.lineTo(11, 2.5);
    path.lineTo(13.5, 5);
    path.lineTo(13.5, 13.5);
    path.lineTo(2.5, 13.5);
    path.closeSubpath();
    path.moveTo(5.5, 2.5); // shutter
    path.lineTo(5.5, 5.5);
    path.lineTo(10.5, 5.5);
    path.lineTo(10.5, 2.5);
    path.moveTo(4.5, 13.5); // label
    path.lineTo(4.5, 8.5);
    path.lineTo(11.5, 8.5);
    path.lineTo(11.5, 13.5);
}

void drawCross(QPainterPath& path)
{
    path.moveTo(4, 4);
    path.lineTo(12, 12);
    path.moveTo(12, 4);
    path.lineTo(4, 12);
}

constexpr Picture kPictures[] = {
    {"add", 2, drawAdd},     {"delete", 1, drawBin},        {"up", 2, drawUp},     {"down", 2, drawDown},
    {"first", 2, drawFirst}, {"previous", 2, drawPrevious}, {"next", 2, drawNext}, {"last", 2, drawLast},
    {"save", 1, drawSave},   {"cancel", 2, drawCross},
};

class PictureEngine final : public QIconEngine {
public:
    PictureEngine(const Picture& picture, const QWidget& widget) : picture_(picture), widget_(&widget) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const QPalette palette = widget_ ? widget_->palette() : QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QPen pen(palette.color(group, QPalette::ButtonText), picture_.pen);
        pen.setJoinStyle(Qt::MiterJoin);
        pen.setCapStyle(Qt::FlatCap);
        QPainterPath path;
        picture_.draw(path);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(area.topLeft());
        painter->scale(area.width() / double(kButtonPictureSize), area.height() / double(kButtonPictureSize));
        painter->setPen(pen);
        painter->drawPath(path);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return std::make_unique<PictureEngine>(*this).release(); }

private:
    const Picture& picture_;
    QPointer<const QWidget> widget_;
};

} // namespace

QIcon buttonPicture(std::string_view name, const QWidget& widget)
{
    for (const Picture& picture : kPictures) {
        if (picture.name == name) {
            return QIcon(std::make_unique<PictureEngine>(picture, widget).release()); // QIcon owns its engine
        }
    }
    throw RuntimeError(ErrorNumber::invalidPropertyValue, {},
                       "there is no button picture \"" + std::string(name) + "\"");
}

} // namespace orvan::qt

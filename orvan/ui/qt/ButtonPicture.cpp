#include "orvan/ui/qt/ButtonPicture.h"

#include "orvan/base/RuntimeError.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>

namespace orvan::qt {

namespace {

// Pictures are drawn on a field of 16 by 16. Straight lines of odd width run through the middle of a pixel and those of
// even width along its edge, so that they stay sharp at whole scales.

struct Point {
    float x = 0;
    float y = 0;
};

/// A line through points; if it ends at its first point, it encloses a shape.
struct Stroke {
    constexpr Stroke(std::initializer_list<Point> line) : count(line.size())
    {
        std::copy(line.begin(), line.end(), points);
    }

    Point points[6];
    std::size_t count;
};

constexpr Stroke kAdd[] = {{{8, 3}, {8, 13}}, {{3, 8}, {13, 8}}};
constexpr Stroke kDelete[] = {{{2.5, 4.5}, {13.5, 4.5}}, // lid and handle
                              {{6.5, 4.5}, {6.5, 2.5}, {9.5, 2.5}, {9.5, 4.5}},
                              {{3.5, 4.5}, {4.5, 13.5}, {11.5, 13.5}, {12.5, 4.5}}, // can
                              {{6.5, 7}, {6.5, 11}},                                // ribs
                              {{9.5, 7}, {9.5, 11}}};
constexpr Stroke kUp[] = {{{8, 13}, {8, 4}}, {{4, 7.5}, {8, 3.5}, {12, 7.5}}};
constexpr Stroke kDown[] = {{{8, 3}, {8, 12}}, {{4, 8.5}, {8, 12.5}, {12, 8.5}}};
constexpr Stroke kFirst[] = {{{4, 3}, {4, 13}}, {{12, 3.5}, {7.5, 8}, {12, 12.5}}};
constexpr Stroke kPrevious[] = {{{10, 3.5}, {5.5, 8}, {10, 12.5}}};
constexpr Stroke kNext[] = {{{6, 3.5}, {10.5, 8}, {6, 12.5}}};
constexpr Stroke kLast[] = {{{12, 3}, {12, 13}}, {{4, 3.5}, {8.5, 8}, {4, 12.5}}};
constexpr Stroke kSave[] = {
    {{2.5, 2.5}, {11, 2.5}, {13.5, 5}, {13.5, 13.5}, {2.5, 13.5}, {2.5, 2.5}}, // disk, one corner cut
    {{5.5, 2.5}, {5.5, 5.5}, {10.5, 5.5}, {10.5, 2.5}},                        // shutter
    {{4.5, 13.5}, {4.5, 8.5}, {11.5, 8.5}, {11.5, 13.5}}};                     // label
constexpr Stroke kCancel[] = {{{4, 4}, {12, 12}}, {{12, 4}, {4, 12}}};

struct Picture {
    std::string_view name;
    float penWidth;
    std::span<const Stroke> strokes;
};

constexpr Picture kPictures[] = {
    {"add", 2, kAdd},           {"delete", 1, kDelete}, {"up", 2, kUp},     {"down", 2, kDown}, {"first", 2, kFirst},
    {"previous", 2, kPrevious}, {"next", 2, kNext},     {"last", 2, kLast}, {"save", 1, kSave}, {"cancel", 2, kCancel},
};

QPainterPath pathOf(std::span<const Stroke> strokes)
{
    QPainterPath path;
    for (const Stroke& stroke : strokes) {
        path.moveTo(stroke.points[0].x, stroke.points[0].y);
        for (std::size_t i = 1; i < stroke.count; ++i) {
            path.lineTo(stroke.points[i].x, stroke.points[i].y);
        }
    }
    return path;
}

class PictureEngine final : public QIconEngine {
public:
    PictureEngine(const Picture& picture, const QWidget& widget) : picture_(picture), widget_(&widget) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const QPalette palette = widget_ ? widget_->palette() : QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QPen pen(palette.color(group, QPalette::ButtonText), picture_.penWidth);
        pen.setJoinStyle(Qt::MiterJoin);
        pen.setCapStyle(Qt::FlatCap);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(area.topLeft());
        painter->scale(area.width() / double(kButtonPictureSize), area.height() / double(kButtonPictureSize));
        painter->setPen(pen);
        painter->drawPath(pathOf(picture_.strokes));
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

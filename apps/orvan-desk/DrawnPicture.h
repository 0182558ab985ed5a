// DrawnPicture: a picture of an icon that code draws, in whatever size is needed.
//
// Pictures in files, as Qt's own standard pictures are, cost time at the desk's start: the first one has Qt load all of
// its readers of pictures. Thread: the user-interface thread.
#pragma once

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace orvan::desk {

class DrawnPicture : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& area, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        draw(*painter, area);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

private:
    virtual void draw(QPainter& painter, const QRect& area) const = 0;
};

} // namespace orvan::desk

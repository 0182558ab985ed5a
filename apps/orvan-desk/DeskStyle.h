// The desk's style: the same on every desktop, with plain buttons and message pictures of its own.
#pragma once

#include <QProxyStyle>

namespace orvan::desk {

class DeskStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// The style is based on Qt's own Fusion, which uses the palette's colours; a desktop's style may ignore them.
    DeskStyle();

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const override;
};

} // namespace orvan::desk

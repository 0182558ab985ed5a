#include "DeskStyle.h"

#include "DrawnPicture.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

namespace orvan::desk {

namespace {

constexpr float kMenuEdge = 0.25F;
constexpr int kRowSpace = 6; // pixels between the rows of a list

/// The picture of a message box: a sign on a disc.
class MessagePicture final : public DrawnPicture {
public:
    MessagePicture(QChar sign, QColor colour) : sign_(sign), colour_(colour) {}

    QIconEngine* clone() const override { return new MessagePicture(*this); }

private:
    void draw(QPainter& painter, const QRect& rect) const override
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour_);
        painter.drawEllipse(rect.adjusted(1, 1, -1, -1));
        QFont font = painter.font();
        font.setBold(true);
        font.setPixelSize(rect.height() * 3 / 5);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(rect, Qt::AlignCenter, sign_);
    }

    QChar sign_;
    QColor colour_;
};

/// Two arrow heads: behind them is what a menu bar has no room for. They point to where the text goes.
class MorePicture final : public DrawnPicture {
public:
    MorePicture(QColor colour, bool leftwards) : colour_(colour), leftwards_(leftwards) {}

    QIconEngine* clone() const override { return new MorePicture(*this); }

private:
    void draw(QPainter& painter, const QRect& rect) const override
    {
        const double step = std::min(rect.width(), rect.height()) / 4.0;
        painter.translate(QRectF(rect).center());
        painter.scale(leftwards_ ? -1 : 1, 1);
        painter.setPen(QPen(colour_, step / 2));
        for (const double tip : {0.0, step * 3 / 2}) {
            const QPointF head[] = {{tip - step, -step}, {tip, 0}, {tip - step, step}};
            painter.drawPolyline(head, 3);
        }
    }

    QColor colour_;
    bool leftwards_;
};

} // namespace

DeskStyle::DeskStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int DeskStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const
{
    switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText: return 0; // the light edge would make disabled text look doubled on a dark background
    default: return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

QSize DeskStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                  const QWidget* widget) const
{
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return type == CT_ItemViewItem ? size + QSize(0, kRowSpace) : size;
}

void DeskStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuBarItem && item && widget && widget->hasFocus()) {
        // Fusion highlights a menu only while it is open, not when the user reaches it with the Alt key.
        QStyleOptionMenuItem reached(*item);
        if (reached.state.testFlag(State_Selected)) {
            reached.state |= State_Sunken;
        }
        QProxyStyle::drawControl(element, &reached, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void DeskStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    const auto* const box = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element == PE_PanelLineEdit && box && box->state.testFlag(State_ReadOnly)) {
        // Fusion shows a box that takes no input as one that does.
        QStyleOptionFrame plain(*box);
        plain.palette.setBrush(QPalette::Base, plain.palette.brush(QPalette::Window));
        QProxyStyle::drawPrimitive(element, &plain, painter, widget);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_PanelMenu || element == PE_FrameMenu) {
        // The edge that Fusion draws cannot be seen on a dark window.
        QColor edge = option->palette.color(QPalette::WindowText);
        edge.setAlphaF(kMenuEdge);
        painter->setPen(edge);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    }
}

QIcon DeskStyle::standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const
{
    switch (picture) {
    case SP_MessageBoxInformation: return QIcon(new MessagePicture(u'i', QColor(0x2f, 0x6f, 0xde)));
    case SP_MessageBoxQuestion: return QIcon(new MessagePicture(u'?', QColor(0x2f, 0x6f, 0xde)));
    case SP_MessageBoxWarning: return QIcon(new MessagePicture(u'!', QColor(0xd9, 0x82, 0x1b)));
    case SP_MessageBoxCritical: return QIcon(new MessagePicture(u'\u00d7', QColor(0xc9, 0x3c, 0x37)));
    case SP_ToolBarHorizontalExtensionButton: // each menu bar asks for it, whether it has room or not
        return QIcon(
            new MorePicture((option ? option->palette : QApplication::palette()).color(QPalette::ButtonText),
                            (option ? option->direction : QApplication::layoutDirection()) == Qt::RightToLeft));
    default: return QProxyStyle::standardIcon(picture, option, widget);
    }
}

} // namespace orvan::desk

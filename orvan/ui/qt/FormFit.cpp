#include "orvan/ui/qt/FormFit.h"

#include "orvan/ui/Surface.h"
#include "orvan/ui/qt/ButtonPicture.h"
#include "orvan/ui/qt/FieldCard.h"
#include "orvan/ui/qt/SurfaceWidgets.h"
#include "orvan/ui/qt/Twips.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QWidget>

#include <algorithm>
#include <string_view>
#include <utility>

namespace orvan::qt {

namespace {

constexpr int kPictureSpace = 9; ///< Added to the size of a picture without a caption: the space of two opposite sides.
constexpr int kLineSpace = 8;    ///< Beside the text of a box, with the margins that QLineEdit leaves.
constexpr int kCaptionSpace = 10; ///< Added to the width that the style gives a button with a caption.

/// Gives the button a picture as high as its font, and returns the size that the button needs.
QSize fitButton(QPushButton& button, bool captioned)
{
    const int picture = std::max(kButtonPictureSize, button.fontMetrics().height());
    button.setIconSize({picture, picture});
    return captioned ? button.sizeHint() + QSize(kCaptionSpace, 0)
                     : QSize(picture + kPictureSpace, picture + kPictureSpace);
}

QSize neededSize(const ui::ControlDesign& design, QWidget& widget)
{
    if (auto* button = dynamic_cast<QPushButton*>(&widget)) {
        return fitButton(*button, !design.caption.empty());
    }
    if (auto* card = dynamic_cast<FieldCard*>(&widget)) {
        return card->neededSize();
    }
    return design.kind == ui::ControlKind::toolBar ? QSize(0, widget.sizeHint().height()) : QSize();
}

/// The size in which a label shows its caption, and a box that is read-only its text, whole.
QSize textSize(const QWidget& widget)
{
    const auto* const line = qobject_cast<const QLineEdit*>(&widget);
    if (!line) {
        return qobject_cast<const QLabel*>(&widget) ? widget.sizeHint() : QSize();
    }
    QStyleOptionFrame option;
    option.initFrom(line);
    option.lineWidth = line->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, line);
    const int text = line->fontMetrics().horizontalAdvance(line->text()) + kLineSpace;
    const QSize needed = line->style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(text, 0), line);
    return {line->isReadOnly() ? needed.width() : 0, line->sizeHint().height()};
}

using Extent = std::pair<float, float>; ///< Right and bottom edge.

Extent extentOf(const ui::Control& control)
{
    return {control.left() + control.width(), control.top() + control.height()};
}

/// The extent of all controls in a frame; of those on the surface itself if `frame` is empty.
Extent extentInside(const ui::Surface& surface, std::string_view frame)
{
    Extent all;
    for (const ui::ControlDesign& row : surface.design().controls) {
        if (row.parent == frame) {
            const Extent one = extentOf(surface.control<ui::Control>(row.name));
            all = {std::max(all.first, one.first), std::max(all.second, one.second)};
        }
    }
    return all;
}

/// Enlarges the control to at least that size in twips, moves the controls to the right of it and below it, and then
/// does the same with its frame.
void enlarge(const ui::Surface& surface, std::string_view name, float width, float height)
{
    auto& control = surface.control<ui::Control>(name);
    const float wider = std::max(width - control.width(), 0.0F);
    const float higher = std::max(height - control.height(), 0.0F);
    if (wider == 0 && higher == 0) {
        return;
    }
    const auto [right, bottom] = extentOf(control);
    const auto& rows = surface.design().controls;
    const auto own = std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.name == name; });
    for (const ui::ControlDesign& row : rows) {
        auto& other = surface.control<ui::Control>(row.name);
        if (row.parent == own->parent && &other != &control) {
            const bool beside = other.left() >= right && other.top() < bottom && extentOf(other).second > control.top();
            const bool below = other.top() >= bottom;
            other.move(other.left() + (beside ? wider : 0), other.top() + (below ? higher : 0));
        }
    }
    control.move(control.left(), control.top(), control.width() + wider, control.height() + higher);
    if (!own->parent.empty()) {
        const Extent inside = extentInside(surface, own->parent);
        enlarge(surface, own->parent, inside.first, inside.second);
    }
}

void enlargeTo(const ui::Surface& surface, std::string_view name, QSize needed)
{
    enlarge(surface, name, toTwips(needed.width()), toTwips(needed.height()));
}

/// Takes the pictures from the buttons of the surface that have captions, and makes these buttons as narrow as they can
/// be. The logic places them by their widths.
void squeezeButtons(const ui::Surface& surface)
{
    for (const ui::ControlDesign& row : surface.design().controls) {
        auto& control = surface.control<ui::Control>(row.name);
        auto* const button = row.parent.empty() ? dynamic_cast<QPushButton*>(widgetOf(control)) : nullptr;
        if (button && !row.caption.empty()) {
            button->setIcon({});
            const float narrow = toTwips(button->sizeHint().width());
            control.move(control.left(), control.top(), std::min(narrow, control.width()), control.height());
        }
    }
}

} // namespace

QSize fitToContents(const ui::Surface& surface, QSize available)
{
    const ui::FormDesign& form = surface.design();
    const Extent designed = extentInside(surface, {});
    for (const ui::ControlDesign& row : form.controls) {
        if (QWidget* widget = widgetOf(surface.control<ui::Control>(row.name))) {
            enlargeTo(surface, row.name, neededSize(row, *widget));
        }
    }
    const Extent fitted = extentInside(surface, {});
    const QSize size(toPixels(form.width - designed.first + fitted.first),
                     toPixels(form.height - designed.second + fitted.second));
    if (size.width() > available.width()) {
        squeezeButtons(surface);
    }
    return size.boundedTo(available);
}

void fitBand(const ui::Surface& surface)
{
    const auto& rows = surface.design().controls;
    for (const ui::ControlDesign& row : rows) {
        if (row.kind == ui::ControlKind::frame || !row.parent.empty()) {
            surface.control<ui::Control>(row.name).move(row.left, row.top, row.width, row.height);
        }
    }
    static_cast<void>(fitToContents(surface, {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX})); // the view itself may be small
    float height = 0;
    for (const ui::ControlDesign& row : rows) {
        auto& control = surface.control<ui::Control>(row.name);
        if (const QWidget* const widget = row.parent.empty() ? nullptr : widgetOf(control)) {
            enlargeTo(surface, row.name, textSize(*widget));
            height = std::max(height, control.height());
        }
    }
    for (const ui::ControlDesign& row : rows) {
        if (!row.parent.empty()) {
            enlarge(surface, row.name, 0, height);
        }
    }
}

} // namespace orvan::qt

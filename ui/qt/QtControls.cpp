#include "ui/qt/QtControls.h"

#include "ui/Platform.h"
#include "ui/qt/ButtonPicture.h"
#include "ui/qt/QtText.h"

#include <QFrame>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>

namespace orvan::qt {

namespace {

/// QLineEdit's own, at each side of its text.
constexpr int kLineEditMargin = 2;

Qt::Alignment alignmentOf(const ui::ControlDesign& design)
{
    return (design.alignment == ui::Alignment::right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

QLabel* newLabel(const ui::ControlDesign& design, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(withoutMnemonic(design.caption)); // QLabel shows the '&' until it has a buddy
    label->setAlignment(alignmentOf(design));
    return label;
}

/// A line of text. One that cannot be changed stands on the window's colour, its text as dark as ever;
/// where the text is too long for the box it ends in an ellipsis, lest an amount be read as another
/// one, and the tool tip or the focus shows the rest.
class LineEdit final : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ToolTip && isReadOnly() && isCut()) {
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toolTipText(text()), this);
            return true;
        }
        return QLineEdit::event(event);
    }

    void initStyleOption(QStyleOptionFrame* option) const override
    {
        QLineEdit::initStyleOption(option);
        if (isReadOnly()) {
            option->palette.setBrush(QPalette::Base, palette().brush(QPalette::Window));
        }
    }

    void paintEvent(QPaintEvent* event) override
    {
        if (!isReadOnly() || hasFocus() || !isCut()) {
            QLineEdit::paintEvent(event);
            return;
        }
        QStylePainter painter(this);
        QStyleOptionFrame option;
        initStyleOption(&option);
        painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
        const QRect area = textArea();
        painter.setPen(palette().color(QPalette::Text));
        painter.setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        painter.drawText(area, static_cast<int>(alignment().toInt()) | Qt::AlignAbsolute,
                         fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
    }

private:
    QRect textArea() const
    {
        QStyleOptionFrame option;
        initStyleOption(&option);
        return style()
            ->subElementRect(QStyle::SE_LineEditContents, &option, this)
            .adjusted(kLineEditMargin, 0, -kLineEditMargin, 0);
    }

    bool isCut() const { return fontMetrics().horizontalAdvance(text()) > textArea().width(); }
};

QLineEdit* newLineEdit(const ui::ControlDesign& design, QWidget* parent)
{
    auto* box = new LineEdit(parent);
    box->setReadOnly(design.readOnly);
    box->setAlignment(alignmentOf(design));
    return box;
}

QPushButton* newButton(const ui::ControlDesign& design, QWidget* parent)
{
    auto* button = new QPushButton(toQt(design.caption), parent);
    button->setAutoDefault(false); // Enter belongs to the host's own default button
    return button;
}

} // namespace

QtFrame::QtFrame(const ui::ControlDesign& design, QWidget* parent)
    : Frame(design), QtWidgetHolder(new QFrame(parent), design)
{
}

QtLabel::QtLabel(const ui::ControlDesign& design, QWidget* parent)
    : Label(design), QtWidgetHolder(newLabel(design, parent), design), caption_(design.caption)
{
}

void QtLabel::nameFor(QWidget* named)
{
    if (auto* label = static_cast<QLabel*>(widget())) {
        label->setBuddy(named);
        label->setText(toQt(caption_));
    }
}

QtTextBox::QtTextBox(const ui::ControlDesign& design, QWidget* parent)
    : TextBox(design), QtWidgetHolder(newLineEdit(design, parent), design)
{
}

void QtTextBox::doSetText()
{
    if (auto* box = static_cast<QLineEdit*>(widget())) {
        box->setText(toQt(text()));
        if (box->isReadOnly()) {
            box->home(false); // of a text too long for the box, its beginning
        }
    }
}

QtButton::QtButton(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform)
    : Button(design), QtWidgetHolder(newButton(design, parent), design), platform_(platform)
{
    auto* button = static_cast<QPushButton*>(widget());
    if (!design.picture.empty()) {
        button->setIcon(buttonPicture(design.picture, *button));
        button->setIconSize({kButtonPictureSize, kButtonPictureSize});
    }
    QObject::connect(button, &QPushButton::clicked, context(), [this] {
        // A copy: the handler may destroy the surface that this button, and with it the slot, stands on.
        if (const auto handler = onClick) {
            platform_.dispatch(handler);
        }
    });
}

void QtButton::doSetEnabled()
{
    if (widget()) {
        widget()->setEnabled(enabled());
    }
}

} // namespace orvan::qt

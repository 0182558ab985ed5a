#include "orvan/ui/qt/QtControls.h"

#include "orvan/ui/qt/Alignment.h"
#include "orvan/ui/qt/ButtonPicture.h"
#include "orvan/ui/qt/Colours.h"
#include "orvan/ui/qt/Edge.h"
#include "orvan/ui/qt/FieldCard.h"
#include "orvan/ui/qt/QtText.h"

#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace orvan::qt {

namespace {

constexpr float kLineShade = 0.15F;
constexpr int kPictureGap = 4; ///< Pixels between a button's picture and its text; Qt leaves as many.

/// A label whose text stands where reading of the window begins. QLabel would go by the language of the text.
class Caption final : public QLabel {
public:
    Caption(QWidget* parent, Qt::Alignment alignment) : QLabel(parent), alignment_(alignment) { align(); }

protected:
    void changeEvent(QEvent* event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::LayoutDirectionChange) {
            align();
        }
    }

private:
    void align() { setAlignment(QStyle::visualAlignment(layoutDirection(), alignment_) | Qt::AlignAbsolute); }

    Qt::Alignment alignment_;
};

QLabel* newLabel(const ui::ControlDesign& design, QWidget* parent)
{
    auto* label = new Caption(parent, alignmentOf(design.alignment));
    label->setTextFormat(Qt::PlainText);
    // Until nameFor sets a buddy, QLabel would show the '&' of a mnemonic.
    label->setText(plainCaption(design.caption, design.mnemonic));
    return label;
}

/// A line in the colour of its neighbours' borders; QFrame's own lines are too bright on a dark ground.
class Separator final : public QFrame {
public:
    Separator(const ui::ControlDesign& design, QWidget* parent) : QFrame(parent)
    {
        const bool across = design.width >= design.height;
        setSizePolicy(across ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                      across ? QSizePolicy::Fixed : QSizePolicy::Expanding);
    }

    QSize sizeHint() const override { return {1, 1}; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), between(palette().color(QPalette::Base), palette().color(QPalette::Text), kLineShade));
    }
};

/// A button that Enter presses, too, while it has the focus. A repeated key is ignored, because the user may have
/// pressed it in another window.
class PushButton final : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!enter || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
            QPushButton::keyPressEvent(event);
        } else if (!event->isAutoRepeat()) {
            click();
        }
    }
    void paintEvent(QPaintEvent* event) override
    {
        if (isRightToLeft() && !icon().isNull() && !text().isEmpty()) {
            paintMirrored();
        } else {
            QPushButton::paintEvent(event);
        }
        paintEdge(*this);
    }

private:
    /// From right to left, Qt mirrors the alignment of a text beside a picture twice, so that the text would stand at
    /// the button's left edge. Picture and text are therefore painted as two labels.
    void paintMirrored()
    {
        QStyleOptionButton whole;
        initStyleOption(&whole);
        QStylePainter painter(this);
        painter.drawControl(QStyle::CE_PushButtonBevel, whole);
        const QRect contents = style()->subElementRect(QStyle::SE_PushButtonContents, &whole, this);
        const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, whole.text).width();
        const int width = textWidth + kPictureGap + whole.iconSize.width();
        QStyleOptionButton text = whole;
        text.icon = {};
        text.rect = contents.adjusted((contents.width() - width) / 2, 0, 0, 0);
        text.rect.setWidth(textWidth);
        painter.drawControl(QStyle::CE_PushButtonLabel, text);
        QStyleOptionButton picture = whole;
        picture.text.clear();
        picture.rect.setRect(text.rect.right() + 1 + kPictureGap, contents.y(), whole.iconSize.width(),
                             contents.height());
        painter.drawControl(QStyle::CE_PushButtonLabel, picture);
        if (whole.state & QStyle::State_HasFocus) {
            QStyleOptionFocusRect focus;
            focus.QStyleOption::operator=(whole);
            focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &whole, this);
            painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
        }
    }
};

QPushButton* newButton(const ui::ControlDesign& design, QWidget* parent)
{
    auto* button = new PushButton(markedCaption(design.caption, design.mnemonic), parent);
    button->setAutoDefault(false); // it must not become the default button of the host's window
    return button;
}

} // namespace

QtFrame::QtFrame(const ui::ControlDesign& design, QWidget* parent, bool hasCells)
    : Frame(design), QtWidgetHolder(hasCells ? new FieldCard(parent) : new QFrame(parent), design)
{
}

QtLabel::QtLabel(const ui::ControlDesign& design, QWidget* parent)
    : Label(design), QtWidgetHolder(newLabel(design, parent), design),
      marked_(markedCaption(design.caption, design.mnemonic))
{
}

void QtLabel::nameFor(QWidget* named)
{
    if (auto* label = static_cast<QLabel*>(widget())) {
        label->setBuddy(named);
        label->setText(marked_);
    }
}

QtLine::QtLine(const ui::ControlDesign& design, QWidget* parent)
    : Line(design), QtWidgetHolder(new Separator(design, parent), design)
{
}

QtButton::QtButton(const ui::ControlDesign& design, QWidget* parent)
    : Button(design), QtWidgetHolder(newButton(design, parent), design)
{
    auto* button = static_cast<QPushButton*>(widget());
    if (!design.picture.empty()) {
        button->setIcon(buttonPicture(design.picture, *button));
        button->setIconSize({kButtonPictureSize, kButtonPictureSize});
    }
    QObject::connect(button, &QPushButton::clicked, context(), [this] { userClicked(); });
}

} // namespace orvan::qt

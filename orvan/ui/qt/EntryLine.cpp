#include "orvan/ui/qt/EntryLine.h"

#include "orvan/ui/qt/Alignment.h"
#include "orvan/ui/qt/Assistance.h"
#include "orvan/ui/qt/Colours.h"
#include "orvan/ui/qt/Edge.h"
#include "orvan/ui/qt/QtText.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>

#include <limits>
#include <memory>
#include <utility>

namespace orvan::qt {

namespace {

/// The margin that QLineEdit leaves at each side of its text.
constexpr int kMargin = 2;
constexpr int kRemarkSpace = 8; ///< Between the text and the remark.
constexpr float kRemarkShade = 0.65F;
constexpr int kSaidAfter = 1000; ///< Milliseconds without a change after which a text is announced.

} // namespace

EntryLine::EntryLine(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform)
    : QLineEdit(parent), EntryWidget(design, platform, false), announced_(design.announced)
{
    // Qt counts UTF-16 units and would cut a character in two; the limit is kept in fit() instead.
    setMaxLength(std::numeric_limits<int>::max());
    setReadOnly(design.readOnly);
    setAlignment(alignmentOf(design.alignment));
    if (design.alignment == ui::Alignment::right) {
        // Boxes that are aligned to the right hold amounts. Without text shaping their digits are exactly below each
        // other, and drawing them at each keystroke is faster. Qt still shapes the scripts that need it.
        QFont amounts;
        amounts.setStyleStrategy(QFont::PreferNoShaping);
        setFont(amounts);
    }
    connect(this, &QLineEdit::textEdited, this,
            [this] { setQuiet(false); }); // Qt emits textEdited only for the user, and before textChanged
    connect(this, &QLineEdit::textChanged, this, [this] { reportChange(); });
    connect(this, &QLineEdit::selectionChanged, this, [this] { EntryWidget::reportSelection(); });
    connect(this, &QLineEdit::cursorPositionChanged, this, [this] { EntryWidget::reportSelection(); });
}

WidgetRange EntryLine::heldSelection() const
{
    return hasSelectedText() ? WidgetRange{selectionStart(), selectionLength()} : WidgetRange{cursorPosition(), 0};
}

void EntryLine::holdSelection(WidgetRange range)
{
    setSelection(static_cast<int>(range.start), static_cast<int>(range.length));
}

void EntryLine::holdCaretAtStart()
{
    caretDue_ = isAtRest();
    if (!caretDue_) {
        holdSelection({0, 0});
    }
}

bool EntryLine::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && claims(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ToolTip && isAtRest() && isCut()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toolTipText(text()), this);
        return true;
    }
    return QLineEdit::event(event);
}

void EntryLine::nativeKeyPress(QKeyEvent& key)
{
    // A key that types a character is no paste. It is tested first, because asking Qt whether a key means "paste" takes
    // a twentieth of a keystroke's time.
    const bool typing = key.modifiers() == Qt::NoModifier && !key.text().isEmpty();
    if (!typing && key.matches(QKeySequence::Paste) && pasteFitting(QClipboard::Clipboard)) {
        key.accept();
        return;
    }
    QLineEdit::keyPressEvent(&key);
}

bool EntryLine::pasteFitting(QClipboard::Mode mode)
{
    const QString offered = QApplication::clipboard()->text(mode);
    const QString fits = fit(offered, heldSelection());
    if (isReadOnly() || fits == offered) {
        return false;
    }
    insert(fits);
    return true;
}

void EntryLine::focusInEvent(QFocusEvent* event)
{
    left_ = false;
    if (std::exchange(caretDue_, false)) {
        showSelection();
    }
    QLineEdit::focusInEvent(event);
}

void EntryLine::focusOutEvent(QFocusEvent* event)
{
    // When a combo box moves the focus into its list, Qt does not give PopupFocusReason as the reason. Without that
    // reason the line would lose its selection: the completed end of the text, which the next key is to replace.
    const Qt::FocusReason reason = QApplication::activePopupWidget() ? Qt::PopupFocusReason : event->reason();
    left_ = reason != Qt::ActiveWindowFocusReason && reason != Qt::MenuBarFocusReason &&
            reason != Qt::PopupFocusReason; // after these reasons the focus comes back to the line
    QFocusEvent left(event->type(), reason);
    QLineEdit::focusOutEvent(&left);
}

void EntryLine::mouseReleaseEvent(QMouseEvent* event)
{
    const bool pastes = event->button() == Qt::MiddleButton && QApplication::clipboard()->supportsSelection();
    if (pastes && !isReadOnly()) {
        deselect(); // this paste must not replace the selection, which is often the text that is pasted
        if (pasteFitting(QClipboard::Selection)) {
            return;
        }
    }
    QLineEdit::mouseReleaseEvent(event);
}

void EntryLine::dropEvent(QDropEvent* event)
{
    const QString offered = event->mimeData()->text();
    const QString fits = fit(offered, {});
    if (isReadOnly() || fits == offered) {
        QLineEdit::dropEvent(event);
        return;
    }
    QMimeData cutData;
    cutData.setText(fits);
    QDropEvent cut(event->position(), event->possibleActions(), &cutData, event->buttons(), event->modifiers());
    cut.setDropAction(event->dropAction());
    QLineEdit::dropEvent(&cut);
    event->setDropAction(Qt::CopyAction); // so that the source does not delete text that was cut off
    event->accept();
}

void EntryLine::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu();
    if (!menu) {
        return;
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : menu->actions()) {
        if (action->text().startsWith(QLineEdit::tr("&Paste"))) { // Qt marks this action by its text alone
            action->disconnect(this);
            connect(action, &QAction::triggered, this, [this] {
                if (!pasteFitting(QClipboard::Clipboard)) {
                    paste();
                }
            });
        }
    }
    menu->popup(event->globalPos());
}

void EntryLine::initStyleOption(QStyleOptionFrame* option) const
{
    QLineEdit::initStyleOption(option);
    if (isReadOnly()) {
        option->palette.setBrush(QPalette::Base, palette().brush(QPalette::Window));
    }
}

void EntryLine::setRemark(const QString& remark)
{
    remark_ = remark;
    const int width = remark.isEmpty() ? 0 : fontMetrics().horizontalAdvance(remark) + kRemarkSpace;
    const bool left = text().isRightToLeft(); // the end of the text
    setTextMargins(left ? width : 0, 0, left ? 0 : width, 0);
    setAccessibleDescription(remark);
    update();
}

void EntryLine::paintRemark()
{
    QPainter painter(this);
    painter.setPen(between(palette().color(QPalette::Base), palette().color(QPalette::Text), kRemarkShade));
    painter.setLayoutDirection(remark_.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    const Qt::Alignment end = textMargins().left() > 0 ? Qt::AlignLeft : Qt::AlignRight;
    painter.drawText(textArea(), static_cast<int>((end | Qt::AlignAbsolute | Qt::AlignVCenter).toInt()), remark_);
}

void EntryLine::textSet()
{
    if (!isVisible()) {
        said_ = text(); // the window is not shown yet: a screen reader says the text when the user gets to it
    } else if (text() == said_) {
        pause_.stop();
    } else if (QAccessible::isActive()) {
        pause_.start(kSaidAfter, this);
    }
}

void EntryLine::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != pause_.timerId()) {
        QLineEdit::timerEvent(event);
        return;
    }
    pause_.stop();
    said_ = text();
    announce(*this, accessibleName() + u' ' + said_);
}

void EntryLine::paintEvent(QPaintEvent* event)
{
    if (isAtRest() && isCut()) {
        paintCut();
    } else {
        QLineEdit::paintEvent(event);
        if (!remark_.isEmpty()) {
            paintRemark();
        }
    }
    if (hasFrame()) {
        paintEdge(*this);
    }
}

void EntryLine::paintCut()
{
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

QRect EntryLine::textArea() const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()->subElementRect(QStyle::SE_LineEditContents, &option, this).adjusted(kMargin, 0, -kMargin, 0);
}

bool EntryLine::isAtRest() const
{
    return left_ || (isReadOnly() && !hasFocus());
}

bool EntryLine::isCut() const
{
    return fontMetrics().horizontalAdvance(text()) > textArea().width();
}

} // namespace orvan::qt

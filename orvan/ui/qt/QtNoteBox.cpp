#include "orvan/ui/qt/QtNoteBox.h"

#include "orvan/ui/qt/Edge.h"
#include "orvan/ui/qt/QtText.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace orvan::qt {

namespace {

// Frame and margin together are the distance of a one-line box's text from its edge.
constexpr int kFrame = 2; ///< Includes the inner half of the focus ring.
constexpr int kMargin = 2;
constexpr int kLowestLines = 3;

} // namespace

class NoteEdit final : public QPlainTextEdit, public EntryWidget {
public:
    NoteEdit(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform)
        : QPlainTextEdit(parent), EntryWidget(design, platform, true)
    {
        if (design.readOnly) {
            setReadOnly(true);
            setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
            viewport()->setBackgroundRole(QPalette::Window); // as boxes of one line; see orvan/ui/qt/EntryLine.h
        }
        setTabChangesFocus(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // lines are wrapped
        setFrameStyle(QFrame::Box | QFrame::Plain);           // only for its width; see paintFrame
        setLineWidth(kFrame);
        // The margin is outside the document: inside it, a part of another line could be seen in the margin. There is
        // no margin at the bottom, where it would cut the descenders of the last line.
        document()->setDocumentMargin(0);
        setViewportMargins(kMargin, kMargin, kMargin, 0);
        connect(document(), &QTextDocument::contentsChange, this, [this](int from, int removed, int added) {
            noteChange({from, removed, added});
        });
        connect(this, &QPlainTextEdit::textChanged, this, [this] {
            reportChange();
            changes_ = 0;
        });
        connect(this, &QPlainTextEdit::selectionChanged, this, [this] { EntryWidget::reportSelection(); });
        connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { EntryWidget::reportSelection(); });
    }

    /// The least height is that of whole lines, so that no line is shown in part.
    QSize minimumSizeHint() const override
    {
        const int text = kLowestLines * fontMetrics().lineSpacing() + 2 * (kMargin + kFrame);
        return {QPlainTextEdit::minimumSizeHint().width(), text};
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ShortcutOverride && claims(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        if (event->type() == QEvent::Paint) {
            paintFrame();
            return true;
        }
        return QPlainTextEdit::event(event);
    }
    void keyPressEvent(QKeyEvent* event) override { pressKey(*event); }
    void inputMethodEvent(QInputMethodEvent* event) override { input(*event); }
    /// Qt calls this for every paste and every drop.
    void insertFromMimeData(const QMimeData* source) override
    {
        QMimeData fitting;
        fitting.setText(fit(source->text(), heldSelection()));
        QPlainTextEdit::insertFromMimeData(&fitting);
    }

private:
    /// What QTextDocument tells of a change.
    struct Contents {
        qsizetype from, removed, added;
    };

    void noteChange(Contents change)
    {
        // Qt may count the end of the document, which is no part of the text.
        change.removed = std::min(change.removed, reported().shown().size() - change.from);
        change.added = std::min(change.added, heldSize() - change.from);
        change_ = change;
        ++changes_;
    }
    qsizetype heldSize() const { return document()->characterCount() - 1; }
    // The next two do not read the text, which is long. While text is dragged, its size tells of what is removed.
    bool heldIsReported() const override { return changes_ == 0 && heldSize() == reported().shown().size(); }
    WidgetChange heldChange() const override
    {
        const auto& [from, removed, added] = change_;
        if (changes_ != 1 || from < 0 || removed < 0 || added < 0 ||
            reported().shown().size() - removed + added != heldSize()) {
            return EntryWidget::heldChange();
        }
        WidgetChange change{from, removed};
        for (qsizetype at = from; at < from + added; ++at) {
            change.added += document()->characterAt(static_cast<int>(at));
        }
        return reported().trimmed(change);
    }
    /// Paints the frame of a one-line box; QPlainTextEdit's own frame does not show the focus.
    void paintFrame()
    {
        QStyleOptionFrame option;
        option.initFrom(this);
        option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
        option.state |= QStyle::State_Sunken;
        if (isReadOnly()) {
            option.palette.setBrush(QPalette::Base, palette().brush(QPalette::Window));
        }
        QStylePainter(this).drawPrimitive(QStyle::PE_PanelLineEdit, option);
        paintEdge(*this);
    }
    /// This does not use toPlainText, which replaces no-break spaces by blanks and other characters by line ends.
    QString heldText() const override { return document()->toRawText(); }
    void holdText(const QString& text) override
    {
        setPlainText(text);
        changes_ = 0;
    }
    WidgetRange heldSelection() const override
    {
        const QTextCursor cursor = textCursor();
        return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
    }
    void holdSelection(WidgetRange range) override
    {
        QTextCursor cursor = textCursor();
        cursor.setPosition(static_cast<int>(range.start));
        cursor.setPosition(static_cast<int>(range.start + range.length), QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
    void nativeKeyPress(QKeyEvent& key) override
    {
        if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) {
            QPlainTextEdit::keyPressEvent(&key);
        } else if (!fit(QStringLiteral("\n"), heldSelection()).isEmpty()) {
            // The key is passed on without Shift and Ctrl, with which Qt would insert another kind of line end.
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
            QPlainTextEdit::keyPressEvent(&enter);
        }
        EntryWidget::reportSelection(); // Undo moves the caret after its last signal where it ends where it began
    }
    void nativeInput(QInputMethodEvent& input) override { QPlainTextEdit::inputMethodEvent(&input); }

    Contents change_{};
    int changes_ = 0; ///< Since the last report; only the last one is kept.
};

QtNoteBox::QtNoteBox(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform)
    : QtNoteBox(design, new NoteEdit(design, parent, platform))
{
}

QtNoteBox::QtNoteBox(const ui::ControlDesign& design, NoteEdit* edit) : QtEntry(design, edit, *edit) {}

} // namespace orvan::qt

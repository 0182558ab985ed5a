// EntryLine: the line edit of a text box and of a combo box.
//
// A read-only line has the window's background colour and the usual text colour. When the box does not
// have the focus, a text that is too long for it is shown from its start and ends in an ellipsis, so that
// an amount is never read as another one. The tool tip shows all of it. Ownership: its parent widget.
// Thread: the user-interface thread.
#pragma once

#include "orvan/ui/qt/QtEntry.h"

#include <QBasicTimer>
#include <QClipboard>
#include <QLineEdit>

namespace orvan::qt {

class EntryLine final : public QLineEdit, public EntryWidget {
public:
    EntryLine(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform);

    /// Shows a quiet word at the end of the line; the text keeps clear of it. Empty: none.
    void setRemark(const QString& remark);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override { pressKey(*event); }
    void inputMethodEvent(QInputMethodEvent* event) override { input(*event); }
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void initStyleOption(QStyleOptionFrame* option) const override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QString heldText() const override { return text(); }
    void holdText(const QString& text) override
    {
        setText(text);
        if (announced_) {
            textSet();
        }
    }
    WidgetRange heldSelection() const override;
    void holdSelection(WidgetRange range) override;
    void holdCaretAtStart() override;
    void nativeKeyPress(QKeyEvent& key) override;
    void nativeInput(QInputMethodEvent& input) override { QLineEdit::inputMethodEvent(&input); }

    /// Inserts the part of the clipboard's text that fits. Returns false, and inserts nothing, if Qt can paste it
    /// itself, because all of it fits or the line is read-only.
    bool pasteFitting(QClipboard::Mode mode);
    void paintCut();
    QRect textArea() const;
    void paintRemark();
    /// Notes that the program has set the text, and announces it when it has stayed the same for a while.
    void textSet();
    /// Whether nobody edits the text or moves the caret in it at the moment.
    bool isAtRest() const;
    bool isCut() const;

    bool left_ = true; ///< The focus is on another control, or the line never had it.
    /// The caret must still be moved when the line gets the focus. Without the focus nobody sees the caret, and moving
    /// it takes a tenth of the time that showing a text takes.
    bool caretDue_ = false;
    QString remark_;
    bool announced_;    ///< A change of the text is announced.
    QString said_;      ///< The text that was announced, or shown with the window.
    QBasicTimer pause_; ///< Runs while an announcement waits for the user's typing to pause.
};

} // namespace orvan::qt

// EntryLine: the line edit of a text box and of a combo box.
//
// A read-only line has the window's colour as its ground and keeps the colour of its text. A text too
// long for the box is shown from its start once the focus has left it, and ends in an ellipsis, so that
// an amount is never read as another one; the tool tip or the focus shows the rest. Ownership: its
// parent widget. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/qt/QtEntry.h"

#include <QClipboard>
#include <QLineEdit>

namespace orvan::qt {

class EntryLine final : public QLineEdit, public EntryWidget {
public:
    EntryLine(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform);

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

private:
    QString heldText() const override { return text(); }
    void holdText(const QString& text) override { setText(text); }
    WidgetRange heldSelection() const override;
    void holdSelection(WidgetRange range) override;
    void holdCaretAtStart() override;
    void nativeKeyPress(QKeyEvent& key) override;
    void nativeInput(QInputMethodEvent& input) override { QLineEdit::inputMethodEvent(&input); }

    /// Inserts the part of the clipboard that fits; false where all of it fits and Qt can paste it itself.
    bool pasteFitting(QClipboard::Mode mode);
    QRect textArea() const;
    /// The text is only read now: nobody edits it or moves the caret in it.
    bool isAtRest() const;
    bool isCut() const;

    bool left_ = true; ///< The focus has gone on to another control, or was never here.
    /// The caret is moved only when the focus comes: at rest nobody sees it, and moving it takes a tenth of the time
    /// that showing a text takes.
    bool caretDue_ = false;
};

} // namespace orvan::qt

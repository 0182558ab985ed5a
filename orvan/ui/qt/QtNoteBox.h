// QtNoteBox: a text box of several lines as a QPlainTextEdit.
//
// Ownership: see orvan/ui/qt/QtWidgetHolder.h. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/TextEntry.h"
#include "orvan/ui/qt/QtEntry.h"

namespace orvan::qt {

class NoteEdit;

/// Long lines wrap, Tab moves on, Enter makes a new line.
class QtNoteBox final : public QtEntry<ui::TextBox> {
public:
    QtNoteBox(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform);

private:
    QtNoteBox(const ui::ControlDesign& design, NoteEdit* edit);
};

} // namespace orvan::qt

// QtTextBox: a text box of one line.
//
// Ownership: see orvan/ui/qt/QtWidgetHolder.h. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/TextEntry.h"
#include "orvan/ui/qt/QtEntry.h"

namespace orvan::qt {

class EntryLine;

class QtTextBox final : public QtEntry<ui::TextBox> {
public:
    QtTextBox(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform);

private:
    QtTextBox(const ui::ControlDesign& design, EntryLine* line);
};

} // namespace orvan::qt

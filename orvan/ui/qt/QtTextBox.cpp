#include "orvan/ui/qt/QtTextBox.h"

#include "orvan/ui/qt/EntryLine.h"

namespace orvan::qt {

QtTextBox::QtTextBox(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform)
    : QtTextBox(design, new EntryLine(design, parent, platform))
{
}

QtTextBox::QtTextBox(const ui::ControlDesign& design, EntryLine* line) : QtEntry(design, line, *line) {}

} // namespace orvan::qt

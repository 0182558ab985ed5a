// TextBox: a box of text, of one line or several.
//
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/TextEntry.h"

namespace orvan::ui {

class TextBox : public TextEntry {
public:
    using TextEntry::TextEntry;
};

} // namespace orvan::ui

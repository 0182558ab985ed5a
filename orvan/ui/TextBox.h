// TextBox: a box of text, of one line or several.
#pragma once

#include "orvan/ui/TextEntry.h"

namespace orvan::ui {

class TextBox : public TextEntry {
public:
    using TextEntry::TextEntry;
};

} // namespace orvan::ui

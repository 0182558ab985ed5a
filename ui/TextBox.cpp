#include "ui/TextBox.h"

#include <utility>

namespace orvan::ui {

void TextBox::setText(std::string text)
{
    text_ = std::move(text);
    doSetText();
}

} // namespace orvan::ui

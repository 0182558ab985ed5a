// TextBox: a box of text (UTF-8).
#pragma once

#include "ui/Control.h"

#include <string>

namespace orvan::ui {

class TextBox : public Control {
public:
    using Control::Control;

    const std::string& text() const { return text_; }
    void setText(std::string text);

protected:
    /// Show text().
    virtual void doSetText() = 0;

private:
    std::string text_;
};

} // namespace orvan::ui

// Clipboard: text that one program hands to another.
//
// This one keeps the text in memory; a platform with a toolkit has one that is the system's. Texts are UTF-8.
// Ownership: the platform. Thread: the user-interface thread.
#pragma once

#include <string>
#include <string_view>

namespace orvan::ui {

class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// "" if there is no text.
    [[nodiscard]] virtual std::string text() { return text_; }
    virtual void setText(std::string_view text) { text_ = text; }

private:
    std::string text_;
};

} // namespace orvan::ui

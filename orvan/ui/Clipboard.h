// Clipboard: holds the text that the user has copied, until it is pasted.
//
// This class keeps the text in memory. A platform with a toolkit has its own, which uses the clipboard of the system.
// Texts are UTF-8. Ownership: the platform. Thread: the user-interface thread.
#pragma once

#include "orvan/core_export.h"

#include <string>
#include <string_view>

namespace orvan::ui {

class ORVAN_CORE_EXPORT Clipboard {
public:
    virtual ~Clipboard() = default;

    /// "" if there is no text.
    [[nodiscard]] virtual std::string text() { return text_; }
    virtual void setText(std::string_view text) { text_ = text; }

private:
    std::string text_;
};

} // namespace orvan::ui

// EntryPort: how a platform reads a text box or a combo box and reports to it what the user did.
//
// A text box and the edit part of a combo box take the same keys and changes. A platform handles both in one place,
// through this port, and each of its boxes (EntryWithPort) provides one. A report raises events, so it may destroy the
// box, and the port with it. Ownership: the box is its own port. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/TextEntry.h"

#include <string>
#include <utility>

namespace orvan::ui {

/// Each report calls the function of TextEntry that begins with "user", for instance userChangedText.
class EntryPort {
public:
    virtual TextEntry& entry() = 0;
    virtual void reportFocus() = 0;
    virtual void reportText(std::string text) = 0;
    virtual void reportSelection(std::int32_t start, std::int32_t length) = 0;
    /// Returns the character that is to be typed; 0 if none is.
    [[nodiscard]] virtual char32_t reportKey(char32_t character) = 0;

protected:
    ~EntryPort() = default;
};

/// `Box` is TextBox or ComboBox.
template <class Box>
class EntryWithPort : public Box, protected EntryPort {
protected:
    using Box::Box;

private:
    TextEntry& entry() final { return *this; }
    void reportFocus() final { this->userFocused(); }
    void reportText(std::string text) final { this->userChangedText(std::move(text)); }
    void reportSelection(std::int32_t start, std::int32_t length) final { this->userSelected(start, length); }
    char32_t reportKey(char32_t character) final { return this->userPressedKey(character); }
};

} // namespace orvan::ui

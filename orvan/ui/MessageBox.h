// MessageBox: asks or tells the user one thing, modally.
//
// Ownership: the platform. Thread: the user-interface thread.
#pragma once

#include <cstdint>
#include <string>

namespace orvan::ui {

/// The first button is the default: Enter presses it.
enum class MessageButtons { ok, yesNo, yesNoCancel };
enum class MessageIcon { critical, question, exclamation, information };
/// The values are those that hosts of this kind know.
enum class MessageResult : std::int32_t { ok = 1, cancel = 2, yes = 6, no = 7 };

/// The title of every message box of the library.
inline constexpr const char* kMessageTitle = "Orvan";

struct Message {
    std::string text = {}; ///< UTF-8, plain: nothing in it is markup.
    std::string title = kMessageTitle;
    MessageButtons buttons = MessageButtons::ok;
    MessageIcon icon = MessageIcon::information;
    std::int32_t ownerWindow = 0; ///< As ContainerSite::parentWindow gives it; 0: no owner.
};

class MessageBox {
public:
    virtual ~MessageBox() = default;

    /// Returns when the user has answered. Closing the box without an answer is cancel where there
    /// is a Cancel button, no where there is only No, ok otherwise. An owner that is gone counts as
    /// none.
    virtual MessageResult show(const Message& message) = 0;
};

} // namespace orvan::ui

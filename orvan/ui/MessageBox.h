// MessageBox: asks or tells the user one thing, modally.
//
// Each platform makes a message box of its own kind; HostOptions::messageBox (orvan/hosting/Host.h) replaces it with
// one of the host's. orvan/testing/MessageBoxConformance.h tests a message box against what is said here.
//
// Ownership: the platform. Thread: the user-interface thread. Errors: what `show` throws is an error of the procedure
// that asked.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/core_export.h"

#include <cstdint>
#include <string>

namespace orvan::ui {

/// The first button is the default: Enter presses it.
enum class MessageButtons { ok, yesNo, yesNoCancel };
enum class MessageIcon { critical, question, exclamation, information };
/// Existing hosts know these values.
enum class MessageResult : std::int32_t { ok = 1, cancel = 2, yes = 6, no = 7 };

/// The title of every message box of the library.
inline constexpr const char* kMessageTitle = "Orvan";

struct Message {
    UserText text = {}; ///< Plain: nothing in it is markup.
    std::string title = kMessageTitle;
    MessageButtons buttons = MessageButtons::ok;
    MessageIcon icon = MessageIcon::information;
    std::int32_t ownerWindow = 0; ///< A handle that ContainerSite::parentWindow or Form::window gave; 0: no owner.
    /// Keys that the user pressed before the box could be seen, and those that follow them without a pause, answer
    /// nothing.
    bool ignoresTypeAhead = false;
};

class ORVAN_CORE_EXPORT MessageBox {
public:
    virtual ~MessageBox() = default;

    /// Returns when the user has answered, with one of the box's own buttons. Timers and other windows may go on while
    /// the box waits: the owner may be destroyed, and another message may be shown. If the user closes the box without
    /// an answer, the result is `cancel` for a box with a Cancel button, `no` for one with Yes and No, and `ok` for one
    /// with OK alone. An owner window that no longer exists counts as no owner.
    virtual MessageResult show(const Message& message) = 0;
};

} // namespace orvan::ui

// Recording: a file with everything that users and hosts do with list views, and everything that comes of it.
//
// A support person plays a recording again with the program orvan-replay, without the user, the host and the host's
// components. It holds products, notes and prices in clear; orvan-replay --redact makes one without these texts.
//
// Recorded are the list views that are made on the platform while the recording runs, with the editors that they open.
// A list view that was there before is not recorded (ProductViewWidget::renew makes one anew), nor is a dialog that a
// host opens itself. Each event is handed to the system before the library works on it, so a crash loses nothing before
// it.
//
//     HostOptions options;
//     options.recording.file = "/var/tmp/quote.recording";
//
// Thread: the user-interface thread. Errors: see each function.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/catalogue_export.h"

#include <filesystem>
#include <functional>

namespace orvan {

namespace ui {
class Platform;
}

struct RecordingOptions {
    std::filesystem::path file = {}; ///< Must not exist; is made for its owner alone.
    /// Whether lists are held by the library's own manager, wrapped or not. The recording then has each list as one
    /// string. If not, it has each answer of the manager, which makes that of a long list large.
    bool ownManager = true;
    /// Called once if the file cannot be written any more; the recording has ended then.
    std::function<void(const UserText& message)> report = {};
    /// The platform whose services the views are to use; null: the one that the recording is started on.
    ui::Platform* services = nullptr;
};

/// Starts a recording; an earlier one ends. Raises 75 if the file cannot be made, and what making a manager raises.
ORVAN_CATALOGUE_EXPORT void startRecording(ui::Platform& platform, RecordingOptions options);
/// Ends the recording, if there is one; its file is complete then. What was made while it ran goes on as it is.
ORVAN_CATALOGUE_EXPORT void stopRecording(ui::Platform& platform);
[[nodiscard]] ORVAN_CATALOGUE_EXPORT bool isRecording(const ui::Platform& platform);

} // namespace orvan

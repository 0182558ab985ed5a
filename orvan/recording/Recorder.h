// Recorder: makes a recording of what users and hosts do with list views, and of what comes of it.
//
// orvan/recording/Recording.h says what is recorded, and orvan/recording/RecordingLine.h how it is written. A recording
// has everything that went into the library and everything that came out of it, so that a replay
// (orvan/replay/Replay.h) can do the same again.
//
// Ownership: shared. The views that were made while it ran use it to their end, also when it has been stopped. The
// platform must outlive it. Thread: the user-interface thread. Errors: start raises 75 where the file cannot be made;
// later nothing is raised: the recording ends, and `report` is called.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/core/Trace.h"
#include "orvan/files/Descriptor.h"
#include "orvan/outside/CallWatch.h"
#include "orvan/outside/WatchedPlatform.h"
#include "orvan/recording/OwnLists.h"
#include "orvan/recording/Recording.h"
#include "orvan/recording/RecordingLine.h"
#include "orvan/ui/EventTap.h"

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orvan::recording {

class ORVAN_CATALOGUE_INTERNAL Recorder final : public ui::EventTap, public outside::CallWatch {
public:
    /// Starts a recording of the views that are made on the platform from now on. There may be one at a time.
    [[nodiscard]] static std::shared_ptr<Recorder> start(ui::Platform& platform, RecordingOptions options);
    ~Recorder() override;

    /// Ends the recording. What is in the file is complete then.
    void stop();
    [[nodiscard]] bool running() const { return running_; }

    // Of EventTap and CallWatch.
    bool busy() const override { return busy_ > 0; }
    void begin(const ui::Surface& surface, const ui::Event& event) override;
    void returned(std::string_view result) override;
    void raised(std::int32_t errorNumber) noexcept override;
    void end() noexcept override;
    std::int32_t measured(std::string_view what, std::int32_t value) override;
    void waitForForm(const ui::Surface& form) override;
    void formClosed() noexcept override;
    ui::Platform& platform() override { return watched_; }
    bool begin(std::string_view name, outside::CallArguments arguments, outside::CallValues& answer) override;
    bool keepsAnswers() const override { return running_; }
    void end(const outside::CallValues& answer) override;
    void threw() noexcept override;

private:
    struct OpenCall {
        CallLine line = {};
        bool written = false; ///< Its line stands in the file already, because something happened during the call.
        int busy = 0;         ///< busy_ before the call.
    };

    Recorder(ui::Platform& platform, RecordingOptions options);
    /// Whether what happens now belongs to something that is recorded.
    [[nodiscard]] bool hears() const
    {
        return running_ && ignored_ == 0 && (busy_ > 0 || !waits_.empty() || !calls_.empty());
    }
    void endCall(Outcome outcome);
    /// Does the work; an error of it, such as no memory, ends the recording.
    template <class Work>
    void record(const Work& work) noexcept;
    void write(const Line& line);
    void flush();
    void giveUp() noexcept;

    ui::Platform& inner_; ///< Has the tap.
    RecordingOptions options_;
    ui::Platform& services_;
    OwnLists lists_;
    outside::WatchedPlatform watched_;
    files::Descriptor file_;
    std::string buffer_;
    bool running_ = true;
    std::shared_ptr<Trace> trace_; ///< The thread's own, while the recorder's stands in its place.
    std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now(); ///< The event before.
    std::map<const ui::Surface*, int> surfaces_;
    int surfaceCount_ = 0;
    int busy_ = 0;    ///< Events that the logic works on, since it began to wait for the last time.
    int ignored_ = 0; ///< Events of surfaces that are not recorded.
    struct ShownForm {
        const ui::Surface* surface;
        int busy; ///< busy_ before the form was shown.
    };
    std::vector<ShownForm> waits_;
    std::vector<OpenCall> calls_;
    std::map<std::string, std::string> known_; ///< What "know" lines have said.
};

} // namespace orvan::recording

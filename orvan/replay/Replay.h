// Replay: makes everything happen again that a recording has, and says whether the same came of it.
//
// The replay is the user, the host, and the components and services of the recording; only the library works. Products
// strings, messages, calls and the trace are compared line by line with the recorded ones. At the first difference the
// replay stops.
//
// Ownership: a replay is one object for one run; what it is given must outlive the run. Thread: one that uses the
// library for nothing else meanwhile. Errors: a stage that fails raises what it raises.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/core/Trace.h"
#include "orvan/hosting/HostedView.h"
#include "orvan/outside/WatchedPlatform.h"
#include "orvan/recording/OwnLists.h"
#include "orvan/replay/RecordedLines.h"
#include "orvan/testing/OutsideCalls.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/EventTap.h"
#include "orvan/ui/Form.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvan::replay {

/// Where a replay takes place: a platform with its windows.
class Stage {
public:
    virtual ~Stage() = default;
    virtual ui::Platform& platform() = 0;
    /// A surface with the design of a list view.
    virtual std::unique_ptr<ui::Surface> makeView() = 0;
    /// Whether the platform itself asks for formats, to paint what it shows. Where it does not, each question comes
    /// from the library, and one that the recording has not is a difference.
    virtual bool paints() const { return true; }
    /// The form, which is going to be shown, runs `play` when it can take events.
    virtual void whenShown(ui::Form& form, std::function<void()> play) = 0;
};

struct ReplayOptions {
    /// Makes the catalogue that answers in place of the recorded answers; empty: those are used.
    std::function<std::shared_ptr<ui::Component>()> liveCatalogue = {};
    /// Calls that fail although they did not when the recording was made.
    std::optional<testkit::OutsideCalls::Rule> fail = {};
    std::size_t untilLine = 0;   ///< Stops before this line; 0: goes on to the end.
    std::int32_t untilError = 0; ///< Stops when the trace has recorded an error of this number; 0: does not.
    /// Only the kinds and names of lines are compared, and not their texts and values: for a recording whose inputs
    /// have been changed.
    bool namesOnly = false;
    /// Called with each line in order: the events that are played, with all that the library brings about. Together
    /// with a heading these lines are a recording of the replay. After a difference they end with the event.
    std::function<void(const recording::Line& line)> onLine = {};
    /// Called before an event of the user is played on the surface.
    std::function<void(const recording::EventLine& event, const ui::Surface& surface)> beforeEvent = {};
};

struct ReplayResult {
    enum class End {
        same,      ///< All of the recording came out as it was recorded.
        different, ///< `recorded` and `replayed` differ.
        stopped,   ///< At the line or the error that the options name.
    } end = End::same;
    std::size_t line = 0;               ///< The line of the recording at which the replay ended, from 1.
    std::string recorded = {};          ///< That line.
    std::string replayed = {};          ///< What came instead.
    std::vector<std::string> open = {}; ///< The procedures that had been entered and not left, the outermost first.
    std::size_t events = 0;             ///< How many events were played.
    std::string products = {};          ///< The list that the host got last.
};

class ORVAN_CATALOGUE_INTERNAL Replay final : public ui::EventTap, public outside::CallWatch {
public:
    Replay(const RecordedLines& lines, Stage& stage, ReplayOptions options = {});
    ~Replay() override;

    ReplayResult run();

    // Of EventTap. What the library reports about the events is not needed: they come from here.
    bool plays() const override { return true; }
    bool busy() const override { return true; }
    void begin(const ui::Surface& /*surface*/, const ui::Event& /*event*/) override {}
    void returned(std::string_view /*result*/) override {}
    void raised(std::int32_t /*errorNumber*/) noexcept override {}
    void end() noexcept override {}
    std::int32_t measured(std::string_view what, std::int32_t value) override;
    void waitForForm(const ui::Surface& form) override;
    void formClosed() noexcept override;
    ui::Platform& platform() override { return *watched_; }
    // Of CallWatch.
    bool begin(std::string_view name, outside::CallArguments arguments, outside::CallValues& answer) override;
    bool keepsAnswers() const override { return true; } // so that all arguments are made
    void end(const outside::CallValues& answer) override;

private:
    class Components;
    class Site;
    struct View;
    /// More than a session ever has; each takes some kilobytes of the stack.
    static constexpr std::size_t kMostNested = 100;

    [[nodiscard]] bool over() const { return result_.end != ReplayResult::End::same; }
    const recording::Line* next() const { return at_ < lines_.size() ? &lines_[at_] : nullptr; }
    template <class Kind>
    const Kind* nextAs() const
    {
        return next() ? std::get_if<Kind>(next()) : nullptr;
    }
    /// Goes on to the next line of the recording. The events that are consequences and stand there are played.
    void advance();
    /// Plays events as long as the next line is one.
    void playEvents();
    void play(const recording::EventLine& line);
    void playWithin(const recording::EventLine& line);
    void playHosts(const recording::EventLine& line);
    /// The library has brought about `line`, which must be the next one of the recording.
    void expect(const recording::Line& line);
    /// Answers a question that changes nothing. Returns whether the stage's own formats are to answer it.
    bool askedOutside(recording::CallLine question, outside::CallValues& answer);
    /// What is answered when the replay is over, and the library goes on to the end of its event.
    [[nodiscard]] outside::CallValues answerAfterEnd(const recording::CallLine& call) const;
    /// Takes the answer of a recorded call. Raises its error.
    static void take(const recording::Outcome& outcome, outside::CallValues& answer);
    void stopAt(ReplayResult::End end, std::string replayed);
    void noteTrace(const recording::TraceLine& line);
    void tell(const recording::Line& line) const;
    [[nodiscard]] bool isExpected(const recording::Line& line) const;

    const RecordedLines& lines_;
    Stage& stage_;
    ReplayOptions options_;
    testkit::OutsideCalls failing_;
    std::unique_ptr<Components> components_;
    std::unique_ptr<outside::WatchedPlatform> watched_;
    std::shared_ptr<Trace> formerTrace_;
    std::map<int, std::unique_ptr<View>> views_;
    std::map<int, ui::Form*> forms_; ///< Those that are shown.
    std::vector<int> shown_;         ///< Their numbers, the outermost first.
    std::size_t at_ = 0;
    std::vector<int> playing_; ///< The surfaces of the events that are being played, each within the one before.
    std::optional<recording::CallLine> asked_; ///< A question that the stage's own formats are answering.
    std::int32_t lastError_ = 0;               ///< That the trace has recorded last.
    ReplayResult result_;
};

/// Replays in memory.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL ReplayResult replayInMemory(const RecordedLines& lines,
                                                                   const ReplayOptions& options = {});

} // namespace orvan::replay

// WholeSession: plays a user who does everything once, on either platform, while calls or allocations fail.
//
// It checks each step: whatever fails in it, the list is then as it was before, or only one product or two neighbours
// differ.
#pragma once

#include "orvan/outside/WatchedPlatform.h"
#include "orvan/testing/OutsideCalls.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/view/ProductView.h"
#include "tests/contract/ContractDriver.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/RecordingTrace.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvan::sweeps {

using test::AllocationPause;
using test::AllocationTrial;

class WholeSession {
public:
    WholeSession(contract::Driver& driver, testkit::OutsideCalls& calls, ui::EditingWay editing);
    ~WholeSession();

    /// Makes a view, works in it, and destroys it.
    void run();

    /// What is wrong after run(): a line each.
    std::vector<std::string> faults;
    /// How many errors the trace recorded, were raised to the host, or left an event handler.
    std::size_t errors = 0;
    /// Set by the test; from its call on, nothing is made to fail. The session calls it before it checks what is left.
    std::function<void()> endFailing;
    bool traceFailed = false; ///< endFailing sets it where a call of the trace was among those that failed.

private:
    class Components;
    class Box;

    void work(ui::Surface& surface, ProductView& view);
    void pressKeys(ui::Grid& grid);
    void edit(ui::Surface& surface, bool save);
    void inEditor(ui::Form& form, bool save);
    void checkWhatIsLeft(ui::Surface& surface, ProductView& view);
    void checkTrace();
    /// Does one thing that a user or the host does. An error that it raises is counted, and the session goes on.
    void step(const char* name, const std::function<void()>& act);
    /// Does the same, and checks that the list then differs by no more than one such thing can change.
    void smallStep(const char* name, const std::function<void()>& act);
    std::string list() const;

    contract::Driver& driver_;
    std::unique_ptr<Components> components_;
    std::unique_ptr<Box> box_;
    outside::WatchedPlatform platform_;
    std::shared_ptr<test::RecordingTrace> trace_;
    std::string shown_; ///< The list at the last Show or at the opening of the editor.
};

} // namespace orvan::sweeps

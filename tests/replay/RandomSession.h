// RandomSession: a user and a host who do 300 things at random with a list view and its editor, and are recorded.
#pragma once

#include "tests/contract/ContractDriver.h"

#include "orvan/hosting/HostedView.h"
#include "orvan/outside/WatchedPlatform.h"
#include "orvan/recording/Recorder.h"
#include "orvan/testing/OutsideCalls.h"

#include <filesystem>
#include <random>
#include <string>

namespace orvan::replay {

struct SessionOptions {
    unsigned seed = 1;
    ui::EditingWay editing = ui::EditingWay::classic;
    bool ownManager = true;
    int events = 300;
    int waitsInHundred = 6; ///< How often the user pauses, so that look-ups come; in a real window that takes time.
};

class RandomSession {
public:
    RandomSession(contract::Driver& driver, const SessionOptions& options, const std::filesystem::path& recording);
    ~RandomSession();

    /// Returns the list at the end.
    std::string run();

private:
    class Components;
    class Box;

    int upTo(int most) { return static_cast<int>(random_() % static_cast<unsigned>(most + 1)); }
    template <std::size_t count>
    const char* oneOf(const char* const (&texts)[count])
    {
        return texts[upTo(static_cast<int>(count) - 1)];
    }
    /// The control, to which the user has gone.
    template <class Box>
    Box& focused(ui::Form& form, const char* name)
    {
        auto& box = form.control<Box>(name);
        if (!box.hasFocus()) {
            driver_.goTo(form, name);
        }
        return box;
    }
    void inList();
    void host();
    void headerMenu();
    void useEditor(ui::Form& form);
    void inEditor(ui::Form& form);
    bool chosenFrom(ui::Surface& surface);

    contract::Driver& driver_;
    SessionOptions options_;
    std::mt19937 random_;
    testkit::OutsideCalls none_; ///< Fails nothing.
    std::unique_ptr<Components> components_;
    std::unique_ptr<Box> box_;
    outside::WatchedPlatform platform_;
    std::unique_ptr<ui::Surface> surface_;
    std::unique_ptr<HostedView> view_;
    std::shared_ptr<recording::Recorder> recorder_;
    int left_ = 0; ///< Events.
};

} // namespace orvan::replay

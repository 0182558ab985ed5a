// HeadlessPlatform: the library's platform without a toolkit.
//
// For hosts without a window (servers, converters, tests): the same logic runs on controls in memory.
// A user's answers to message boxes and actions in dialogs are given in advance, time passes by
// clock().advance(), and settings live as long as the platform, unless the host has services of its own for them
// (useServices). A message box without an answer and a form without a driver raise 51. Ownership: the host. Thread: the
// thread that made it.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/ScreenPointer.h"
#include "orvan/ui/headless/Drivers.h"
#include "orvan/ui/headless/HeadlessClock.h"

#include <deque>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

namespace orvan::headless {

class HeadlessForm;

/// A message box that takes its answers from a queue, or from the host's own message box.
class ORVAN_CORE_EXPORT HeadlessMessageBox final : public ui::MessageBox {
public:
    /// If not null, every message goes there, and the queue is not used.
    std::shared_ptr<ui::MessageBox> hostBox;

    /// Adds an answer to the queue; each message box takes the first one.
    void answer(ui::MessageResult result) { answers_.push_back(result); }

    /// Runs while a message box waits for its answer, as timers and other windows do in a program.
    std::function<void(const ui::Message& message)> onWaiting;

    /// Raises 51 if the queue is empty or its first answer is none of the box's buttons, and what the host's box
    /// raises. The message box is then still in shown().
    ui::MessageResult show(const ui::Message& message) override;

    /// Every message box so far, oldest first.
    const std::vector<ui::Message>& shown() const { return shown_; }
    /// How many answers are still in the queue.
    std::size_t unusedAnswers() const { return answers_.size(); }
    /// How many message boxes found no answer that their buttons offer.
    int unanswered() const { return unanswered_; }

private:
    std::deque<ui::MessageResult> answers_;
    std::vector<ui::Message> shown_;
    int unanswered_ = 0;
};

/// Settings in memory, or in the host's own store.
class ORVAN_CORE_EXPORT HeadlessSettingsStore final : public ui::SettingsStore {
public:
    /// If not null, every setting is read and kept there.
    std::shared_ptr<ui::SettingsStore> hostStore;

    std::string get(std::string_view application, std::string_view section, std::string_view key) override;
    void set(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override;

private:
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
};

class ORVAN_CORE_EXPORT HeadlessPointer final : public ui::ScreenPointer {
public:
    ui::PointerCode code() const override { return history_.back(); }
    void setCode(ui::PointerCode code) override { history_.push_back(code); }

    /// Every code that has been set, oldest first; the first is always the standard code.
    const std::vector<ui::PointerCode>& history() const { return history_; }

private:
    std::vector<ui::PointerCode> history_{ui::PointerCode::standard};
};

class ORVAN_CORE_EXPORT HeadlessPlatform final : public ui::Platform {
public:
    /// The locale and the components must outlive the platform. An error that leaves an event handler is written to
    /// std::cerr until the host sets onUnhandledError.
    HeadlessPlatform(ui::LocaleService& locale, ui::ComponentFactory& components);

    HeadlessMessageBox& messageBox() override { return messageBox_; }
    HeadlessSettingsStore& settings() override { return settings_; }
    ui::LocaleService& locale() override { return locale_; }
    ui::ComponentFactory& components() override { return components_; }
    HeadlessPointer& pointer() override { return pointer_; }
    std::unique_ptr<ui::Form> loadForm(const ui::FormDesign& design, std::int32_t ownerWindow) override;

    /// Uses the host's services from now on.
    void useServices(ui::HostServices services);

    /// A function of the host that plays the user of one form. "Driver" means such a function in the names below;
    /// the interface that it uses is a FormDriver.
    using Driver = std::function<void(FormDriver& form)>;
    /// Adds a driver to the queue. Each form that is shown takes the first one from it. A form that finds no driver, or
    /// is still open when its driver has returned, is unloaded and raises 51.
    void drive(Driver driver) { drivers_.push_back(std::move(driver)); }
    /// Removes the first driver of the queue, which the next form would have taken.
    void dropDriver() { static_cast<void>(nextDriver()); }
    /// How many drivers are still in the queue.
    std::size_t unusedDrivers() const { return drivers_.size(); }
    HeadlessClock& clock() { return clock_; }

private:
    friend class HeadlessForm;

    /// Takes the first driver from the queue; empty if there is none.
    Driver nextDriver();

    ui::LocaleService& locale_;
    ui::ComponentFactory& components_;
    HeadlessMessageBox messageBox_;
    HeadlessSettingsStore settings_;
    HeadlessPointer pointer_;
    HeadlessClock clock_;
    std::deque<Driver> drivers_;
};

} // namespace orvan::headless

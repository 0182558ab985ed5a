// OutsideCalls: wrappers around all that the library calls outside of itself, so that a test can make each call fail in
// turn.
//
// A test makes an OutsideCalls, hands the library a WrappedPlatform and a WrappedFactory in the place of its own, and
// runs a session once to count the calls. Then it runs the same session again, with failAt(1), failAt(2) and so on, and
// looks at what is left after each. What is wrapped: components as they are created (product manager with its records,
// catalogue, trace), message boxes, settings, the locale service, the mouse pointer and the timers of forms.
//
// Ownership: the wrapped objects and the OutsideCalls must outlive the wrappers; the components are shared. Thread: the
// user-interface thread.
#pragma once

#include "orvan/ui/Platform.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace orvan::testkit {

class OutsideCalls {
public:
    /// What a failed call throws: a RuntimeError, or an object of another type, as code of a host may throw.
    enum class Failure { runtimeError, foreign };
    enum class Repeat { once, fromThenOn };

    /// The number of the error that is thrown for Failure::runtimeError.
    static constexpr std::int32_t kErrorNumber = 1000;

    /// Makes the call with this number fail, counted from now on (1: the next one; 0: none), alone or together with all
    /// that follow it.
    void failAt(std::size_t number, Repeat repeat = Repeat::once, Failure failure = Failure::runtimeError);
    /// The calls since failAt, or since the beginning.
    std::size_t count() const { return count_; }
    /// The name of the first call that failed, such as "ProductMgr::GetProduct"; empty if none has.
    const std::string& failed() const { return failed_; }

    /// To be called by a wrapper before it passes a call on. Throws if that call is to fail.
    void report(std::string_view name);

private:
    std::size_t count_ = 0;
    std::size_t failAt_ = 0;
    Repeat repeat_ = Repeat::once;
    Failure failure_ = Failure::runtimeError;
    std::string failed_;
};

/// Wraps what another factory creates. An object that is neither a manager nor a catalogue nor a trace is passed on as
/// it is.
class WrappedFactory final : public ui::ComponentFactory {
public:
    WrappedFactory(ui::ComponentFactory& inner, OutsideCalls& calls) : inner_(inner), calls_(calls) {}

    std::shared_ptr<ui::Component> create(std::string_view className) override;

private:
    ui::ComponentFactory& inner_;
    OutsideCalls& calls_;
};

/// Wraps the services that the test gives in Own and, for the others, those of another platform, the inner one. Forms
/// are the inner platform's, and unhandled errors go to it.
class WrappedPlatform final : public ui::Platform {
public:
    struct Own {
        ui::ComponentFactory& components;
        ui::MessageBox& messageBox;
        ui::LocaleService& locale;
    };

    WrappedPlatform(ui::Platform& inner, const Own& own, OutsideCalls& calls);
    ~WrappedPlatform() override;

    ui::MessageBox& messageBox() override;
    ui::SettingsStore& settings() override;
    ui::LocaleService& locale() override;
    ui::ComponentFactory& components() override;
    ui::ScreenPointer& pointer() override;
    ui::Clipboard& clipboard() override;
    std::unique_ptr<ui::Form> loadForm(const ui::FormDesign& design, std::int32_t ownerWindow) override;

    /// Called with each form that loadForm has made, before the form is shown.
    std::function<void(ui::Form& form)> onFormLoaded;

private:
    struct Services;

    ui::Platform& inner_;
    OutsideCalls& calls_;
    std::unique_ptr<Services> services_;
};

} // namespace orvan::testkit

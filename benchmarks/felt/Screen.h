// Screen: a virtual X server with a window manager, on which a program is worked with as a user works with it: keys and
// clicks go in through the server, and what comes out is seen by the pixels that change.
//
// Every wait has a limit; it raises std::runtime_error, whose text says what did not come.
// Ownership: the server and the window manager are child processes and end with the object. Thread: one.
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvan::felt {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

/// Until when a wait goes on that nothing ends; long enough for a machine that does much else.
inline constexpr Milliseconds kPatience{20'000};

/// Left, top, width and height in pixels of the screen.
struct Place {
    double left = 0, top = 0, width = 0, height = 0;
    bool operator==(const Place& other) const = default;
};

class Screen {
public:
    /// The window manager's settings are looked for in `home`, so that the user's own do not matter.
    explicit Screen(const std::filesystem::path& home);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen();

    /// What DISPLAY has to be for a program that shows its windows here.
    [[nodiscard]] const std::string& display() const;

    /// How many windows of programs are shown, as the window manager counts them.
    [[nodiscard]] std::size_t windows() const;

    /// Presses or releases a key, by its name in X: "x", "BackSpace", "Next". Waits for nothing.
    void key(std::string_view name, bool down);
    /// Presses or releases the left mouse button.
    void button(bool down);
    void movePointer(const Place& place);

    /// Waits until pixels change, and then until none has changed for `quiet`. Returns when the last of these changes
    /// was heard of, or nothing if none came within `limit`. Changes that came before the call count, too: see
    /// forgetChanges.
    /// Each change that is heard of is told to `onChange`.
    std::optional<Clock::time_point> lastChange(Milliseconds quiet, Milliseconds limit,
                                                const std::function<void()>& onChange = {});
    /// Forgets the changes that have come until now.
    void forgetChanges();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace orvan::felt

// Actor: a user who works with one program on one screen, and measures how long it takes to answer.
//
// What is measured is the time to the last pixels of the answer, as the screen hears of them, or the processor time
// that the program takes until no more pixels come, which other programs of the machine disturb less.
//
// A stroke is a key with the keys that are held meanwhile: "7", "BackSpace", "Alt_L+Down". Every wait has a limit; what
// did not come is raised as std::runtime_error.
// Ownership: the program is a child process, which is killed with the object. Thread: one.
#pragma once

#include "benchmarks/felt/Screen.h"

#include <QProcess>
#include <QStringList>

#include <cstddef>
#include <functional>
#include <string>

namespace orvan::felt {

struct Command {
    std::filesystem::path program;
    QStringList arguments;
    /// Becomes the home and the working directory, in a copy of its own for each run.
    std::filesystem::path home;
};

enum class Measure { toPixels, processorTime };

/// Where a program runs. Each side of a row has a screen of its own, so that both programs stay open while they are
/// measured in turn.
struct Stage {
    Screen& screen;
    std::filesystem::path scratch; ///< A directory for the program alone, which is emptied.
    Measure measure;
};

class Actor {
public:
    /// Starts the program and waits until its window has been shown and painted.
    Actor(const Stage& stage, const Command& command);
    Actor(const Actor&) = delete;
    Actor& operator=(const Actor&) = delete;
    ~Actor();

    /// Nanoseconds of the start, from the call that started the program to its first window.
    [[nodiscard]] double startTime() const { return startTime_; }

    /// A stroke, and nanoseconds of the answer.
    double answerTo(const std::string& stroke);
    /// A double click on a thing, and nanoseconds of the answer to its second press.
    double answerToDoubleClick(const std::string& thing);
    /// A stroke that answers a question, and the processor time of what follows, in nanoseconds.
    double workFor(const std::string& stroke);

    /// The same without a figure, until the answer has come. Pixels need not change.
    void press(const std::string& stroke);
    void click(const std::string& thing);
    /// Waits until this many windows are shown, and no pixel changes any more.
    void awaitWindows(std::size_t count);
    /// Presses a stroke that ends the program, and waits for the end.
    void quit(const std::string& stroke);
    /// The home directory of this run.
    [[nodiscard]] const std::filesystem::path& home() const { return home_; }
    /// Waits as long without watching anything.
    static void pause(Milliseconds time);

private:
    void start(const Command& command);
    void end();
    Place placeOf(const std::string& thing);
    double answerTo(const std::string& stroke, Measure measure, Milliseconds quiet);
    double measured(const std::string& what, Measure measure, Milliseconds quiet, const std::function<void()>& act);
    void settle();
    /// What has to be held for the stroke; returns the key itself.
    std::string hold(const std::string& stroke, bool down);

    Screen& screen_;
    Measure measure_;
    QProcess program_;
    std::filesystem::path home_;
    double startTime_ = 0;
};

} // namespace orvan::felt

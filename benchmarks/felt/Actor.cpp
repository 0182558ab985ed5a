#include "benchmarks/felt/Actor.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcessEnvironment>

#include <ctime>
#include <stdexcept>
#include <thread>

#include <signal.h>

namespace orvan::felt {

namespace {

/// An answer is complete when no pixel has changed for so long. A caret blinks more slowly.
constexpr Milliseconds kQuiet{30};
/// A window opens with the help of the window manager, which has its own steps.
constexpr Milliseconds kQuietStart{150};
/// A button that is pressed by its key is shown pressed for a tenth of a second first.
constexpr Milliseconds kQuietQuestion{250};

QProcessEnvironment environmentFor(const std::string& display, const std::filesystem::path& home)
{
    QProcessEnvironment environment;
    const QString folder = QString::fromStdString(home.string());
    environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
    environment.insert(QStringLiteral("DISPLAY"), QString::fromStdString(display));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("HOME"), folder);
    for (const char* const kind : {"CONFIG", "DATA", "STATE", "CACHE"}) {
        environment.insert(QStringLiteral("XDG_%1_HOME").arg(QLatin1String(kind)), folder);
    }
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
    return environment;
}

/// The processor time of a process, in nanoseconds.
double processorTime(qint64 process)
{
    clockid_t clock = 0;
    timespec time = {};
    if (::clock_getcpuclockid(static_cast<pid_t>(process), &clock) != 0 || ::clock_gettime(clock, &time) != 0) {
        throw std::runtime_error("the program has ended, or its processor time cannot be read");
    }
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

double nanoseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::nano>(time).count();
}

} // namespace

Actor::Actor(const Stage& stage, const Command& command)
    : screen_(stage.screen), measure_(stage.measure), home_(stage.scratch)
{
    std::filesystem::remove_all(home_);
    std::filesystem::create_directories(home_);
    if (!command.home.empty()) {
        std::filesystem::copy(command.home, home_, std::filesystem::copy_options::recursive);
    }
    std::filesystem::permissions(home_, std::filesystem::perms::owner_all); // as a runtime directory has to be
    screen_.movePointer({});                                                // out of the way
    pause(kQuiet);
    screen_.forgetChanges();
    program_.setProcessEnvironment(environmentFor(screen_.display(), home_));
    program_.setStandardErrorFile(QString::fromStdString((home_ / "errors").string()));
    program_.setWorkingDirectory(QString::fromStdString(home_.string()));
    program_.setProgram(QString::fromStdString(command.program.string()));
    program_.setArguments(command.arguments);
    try {
        start(command);
    } catch (...) {
        end();
        throw;
    }
}

void Actor::start(const Command& command)
{
    const Clock::time_point begin = Clock::now();
    program_.start();
    double work = 0;
    const std::optional<Clock::time_point> shown =
        screen_.lastChange(kQuietStart, kPatience, [&] { work = processorTime(program_.processId()); });
    if (!shown) {
        throw std::runtime_error(command.program.string() + " showed no window");
    }
    startTime_ = measure_ == Measure::toPixels ? nanoseconds(*shown - begin) : work;
    awaitWindows(1);
}

Actor::~Actor()
{
    end();
}

void Actor::end()
{
    program_.kill();
    program_.waitForFinished();
    try {
        awaitWindows(0);
    } catch (const std::exception&) {
        // The next program says what is wrong.
    }
    std::error_code ignored;
    std::filesystem::remove_all(home_, ignored);
}

std::string Actor::hold(const std::string& stroke, bool down)
{
    std::size_t from = 0;
    for (std::size_t plus = stroke.find('+'); plus != stroke.npos; plus = stroke.find('+', from)) {
        screen_.key(stroke.substr(from, plus - from), down);
        from = plus + 1;
    }
    return stroke.substr(from);
}

double Actor::measured(const std::string& what, Measure measure, Milliseconds quiet, const std::function<void()>& act)
{
    screen_.forgetChanges();
    const double before = processorTime(program_.processId());
    double work = 0;
    const Clock::time_point begin = Clock::now();
    act();
    const std::optional<Clock::time_point> last =
        screen_.lastChange(quiet, kPatience, [&] { work = processorTime(program_.processId()) - before; });
    if (!last) {
        throw std::runtime_error(what + " changed no pixel");
    }
    return measure == Measure::toPixels ? nanoseconds(*last - begin) : work;
}

double Actor::answerTo(const std::string& stroke)
{
    return answerTo(stroke, measure_, kQuiet);
}

double Actor::workFor(const std::string& stroke)
{
    return answerTo(stroke, Measure::processorTime, kQuietQuestion);
}

double Actor::answerTo(const std::string& stroke, Measure measure, Milliseconds quiet)
{
    const std::string key = hold(stroke, true);
    if (key.size() != stroke.size()) {
        settle(); // a held key may show something itself, such as the underlines of access keys
    }
    const double time = measured(stroke, measure, quiet, [&] { screen_.key(key, true); });
    screen_.key(key, false);
    hold(stroke, false);
    settle();
    return time;
}

double Actor::answerToDoubleClick(const std::string& thing)
{
    click(thing);
    const double time = measured("a double click on " + thing, measure_, kQuiet, [&] { screen_.button(true); });
    screen_.button(false);
    settle();
    return time;
}

void Actor::press(const std::string& stroke)
{
    const std::string key = hold(stroke, true);
    screen_.key(key, true);
    screen_.key(key, false);
    hold(stroke, false);
    settle();
}

void Actor::click(const std::string& thing)
{
    screen_.movePointer(placeOf(thing));
    settle();
    screen_.button(true);
    screen_.button(false);
    settle();
}

void Actor::settle()
{
    screen_.lastChange(kQuiet, kQuiet);
}

void Actor::awaitWindows(std::size_t count)
{
    const auto limit = Clock::now() + kPatience;
    while (screen_.windows() != count) {
        if (Clock::now() > limit) {
            throw std::runtime_error("there are " + std::to_string(screen_.windows()) + " windows instead of " +
                                     std::to_string(count));
        }
        pause(Milliseconds(5));
    }
    screen_.lastChange(kQuietStart, kQuietStart);
}

void Actor::quit(const std::string& stroke)
{
    press(stroke);
    if (!program_.waitForFinished(static_cast<int>(kPatience.count()))) {
        throw std::runtime_error("the program did not end after " + stroke);
    }
}

void Actor::pause(Milliseconds time)
{
    std::this_thread::sleep_for(time);
}

Place Actor::placeOf(const std::string& thing)
{
    const auto limit = Clock::now() + kPatience;
    std::optional<Place> former;
    while (Clock::now() < limit) {
        program_.write("\n");
        while (!program_.canReadLine()) {
            if (!program_.waitForReadyRead(static_cast<int>(kPatience.count()))) {
                throw std::runtime_error("the program does not say where its things stand");
            }
        }
        const QJsonArray found =
            QJsonDocument::fromJson(program_.readLine()).object().value(QString::fromStdString(thing)).toArray();
        if (found.size() == 4) {
            const Place place{found[0].toDouble(), found[1].toDouble(), found[2].toDouble(), found[3].toDouble()};
            if (former == place) { // it stands still
                return place;
            }
            former = place;
        }
        pause(Milliseconds(20));
    }
    throw std::runtime_error(thing + " is not in the window in front");
}

} // namespace orvan::felt

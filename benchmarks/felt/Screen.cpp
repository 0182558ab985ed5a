#include "benchmarks/felt/Screen.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <stdexcept>
#include <thread>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <poll.h>

namespace orvan::felt {

namespace {

using DisplayHandle = std::unique_ptr<::Display, int (*)(::Display*)>;

/// Starts the server and returns its display's name.
std::string start(QProcess& server)
{
    server.start(QStringLiteral("Xvfb"),
                 {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
                  QStringLiteral("1400x1000x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    if (!server.waitForReadyRead(static_cast<int>(kPatience.count()))) { // it prints its number once it is ready
        throw std::runtime_error("Xvfb did not say which display it has");
    }
    return ":" + server.readLine().trimmed().toStdString();
}

void end(QProcess& process)
{
    process.terminate();
    if (!process.waitForFinished(2'000)) {
        process.kill();
        process.waitForFinished(2'000);
    }
}

} // namespace

struct Screen::Parts {
    explicit Parts(const std::filesystem::path& home)
        : display(start(server)), connection(XOpenDisplay(display.c_str()), XCloseDisplay)
    {
        if (!connection) {
            throw std::runtime_error("the virtual X server " + display + " takes no connection");
        }
        root = DefaultRootWindow(connection.get());
        int firstError = 0, major = 0, minor = 0, event = 0;
        if (!XDamageQueryExtension(connection.get(), &firstDamageEvent, &firstError) ||
            !XTestQueryExtension(connection.get(), &event, &firstError, &major, &minor)) {
            throw std::runtime_error("the virtual X server has no XDAMAGE or no XTEST");
        }
        XAutoRepeatOff(connection.get());
        XDamageCreate(connection.get(), root, XDamageReportRawRectangles); // of the root: all windows together
        startManager(home);
    }
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;
    ~Parts()
    {
        end(manager);
        connection.reset();
        end(server);
    }

    void startManager(const std::filesystem::path& home)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DISPLAY"), QString::fromStdString(display));
        for (const char* const variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
            environment.insert(QString::fromLatin1(variable), QString::fromStdString(home.string()));
        }
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        manager.setProcessEnvironment(environment);
        manager.setStandardErrorFile(QProcess::nullDevice());
        manager.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
        const auto limit = Clock::now() + kPatience;
        while (longs("_NET_SUPPORTING_WM_CHECK") == 0) {
            if (Clock::now() > limit) {
                throw std::runtime_error("openbox did not become the window manager of the virtual X server");
            }
            std::this_thread::sleep_for(Milliseconds(10));
        }
    }

    /// How many values a property of the root window has.
    [[nodiscard]] std::size_t longs(const char* property) const
    {
        Atom type = 0;
        int format = 0;
        unsigned long count = 0, rest = 0;
        unsigned char* values = nullptr;
        XGetWindowProperty(connection.get(), root, XInternAtom(connection.get(), property, False), 0, 1024, False,
                           AnyPropertyType, &type, &format, &count, &rest, &values);
        if (values) {
            XFree(values);
        }
        return count;
    }

    /// Reads the events that have come. Returns whether a change of pixels is among them.
    [[nodiscard]] bool takeEvents() const
    {
        bool changed = false;
        while (XPending(connection.get()) > 0) {
            XEvent event;
            XNextEvent(connection.get(), &event);
            changed = changed || event.type == firstDamageEvent + XDamageNotify;
        }
        return changed;
    }

    QProcess server;
    std::string display;
    DisplayHandle connection;
    QProcess manager;
    ::Window root = 0;
    int firstDamageEvent = 0;
};

Screen::Screen(const std::filesystem::path& home) : parts_(std::make_unique<Parts>(home)) {}

Screen::~Screen() = default;

const std::string& Screen::display() const
{
    return parts_->display;
}

std::size_t Screen::windows() const
{
    return parts_->longs("_NET_CLIENT_LIST");
}

void Screen::key(std::string_view name, bool down)
{
    ::Display* const connection = parts_->connection.get();
    const KeySym symbol = XStringToKeysym(std::string(name).c_str());
    const KeyCode code = symbol == NoSymbol ? KeyCode(0) : XKeysymToKeycode(connection, symbol);
    if (code == 0) {
        throw std::runtime_error(std::string("the virtual X server has no key ").append(name));
    }
    XTestFakeKeyEvent(connection, code, down ? True : False, CurrentTime);
    XFlush(connection);
}

void Screen::button(bool down)
{
    XTestFakeButtonEvent(parts_->connection.get(), 1, down ? True : False, CurrentTime);
    XFlush(parts_->connection.get());
}

void Screen::movePointer(const Place& place)
{
    XTestFakeMotionEvent(parts_->connection.get(), -1, static_cast<int>(place.left + place.width / 2),
                         static_cast<int>(place.top + place.height / 2), CurrentTime);
    XFlush(parts_->connection.get());
}

std::optional<Clock::time_point> Screen::lastChange(Milliseconds quiet, Milliseconds limit,
                                                    const std::function<void()>& onChange)
{
    std::optional<Clock::time_point> last;
    const Clock::time_point begin = Clock::now();
    while (true) {
        if (parts_->takeEvents()) {
            last = Clock::now();
            if (onChange) {
                onChange();
            }
        }
        const Clock::time_point now = Clock::now();
        const Milliseconds left = last ? quiet - Milliseconds(now - *last) : limit - Milliseconds(now - begin);
        if (left <= Milliseconds(0)) {
            return last;
        }
        if (last && now - begin > kPatience) {
            throw std::runtime_error("the pixels of the screen did not come to rest");
        }
        const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(left).count();
        const timespec wait = {nanoseconds / 1'000'000'000, nanoseconds % 1'000'000'000};
        pollfd server = {ConnectionNumber(parts_->connection.get()), POLLIN, 0};
        ::ppoll(&server, 1, &wait, nullptr);
    }
}

void Screen::forgetChanges()
{
    XSync(parts_->connection.get(), False);
    static_cast<void>(parts_->takeEvents());
}

} // namespace orvan::felt

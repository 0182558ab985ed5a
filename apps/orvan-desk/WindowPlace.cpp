#include "WindowPlace.h"

#include "DeskSettings.h"

#include <QEvent>
#include <QGuiApplication>
#include <QJsonObject>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace orvan::desk {

namespace {

constexpr std::string_view kPlacesKey = "WindowPlaces";
constexpr std::size_t kMostScreens = 10; // kept; a notebook meets many projectors
constexpr int kBeforeKeeping = 500;      // milliseconds
/// An estimate of the size of a window's borders and caption together; Qt knows it only after the window is shown.
constexpr QSize kDecoration(16, 48);
constexpr QSize kLeast(200, 100); ///< A kept size below this one is damaged.

ScreenArea areaOf(const QScreen& screen)
{
    return {.name = screen.name(), .whole = screen.geometry(), .available = screen.availableGeometry()};
}

std::vector<ScreenArea> connectedScreens()
{
    std::vector<ScreenArea> areas;
    for (const QScreen* const screen : QGuiApplication::screens()) { // the main screen is the first one
        areas.push_back(areaOf(*screen));
    }
    return areas;
}

QJsonArray numbers(const QRect& rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

std::vector<WindowPlace> keptPlaces()
{
    std::vector<WindowPlace> places;
    for (const auto& value : keptList(kPlacesKey)) {
        const QJsonObject object = value.toObject();
        const QJsonArray size = object[QStringLiteral("size")].toArray(),
                         place = object[QStringLiteral("place")].toArray();
        const QRect rect(place.at(0).toInt(), place.at(1).toInt(), place.at(2).toInt(), place.at(3).toInt());
        if (rect.width() >= kLeast.width() && rect.height() >= kLeast.height()) {
            places.push_back({.screen = object[QStringLiteral("screen")].toString(),
                              .screenSize = QSize(size.at(0).toInt(), size.at(1).toInt()),
                              .place = rect,
                              .maximized = object[QStringLiteral("maximized")].toBool()});
        }
    }
    return places;
}

void keepPlaces(const std::vector<WindowPlace>& places)
{
    QJsonArray list;
    for (const WindowPlace& each : places) {
        list.append(QJsonObject{{QStringLiteral("screen"), each.screen},
                                {QStringLiteral("size"), QJsonArray{each.screenSize.width(), each.screenSize.height()}},
                                {QStringLiteral("place"), numbers(each.place)},
                                {QStringLiteral("maximized"), each.maximized}});
    }
    keepList(kPlacesKey, list);
}

bool isKeptFor(const WindowPlace& place, const ScreenArea& screen)
{
    return place.screen == screen.name && place.screenSize == screen.whole.size();
}

/// Moves the window, frame included, onto the available part of a screen, and makes it smaller where it must be.
QRect fitted(QRect window, const QRect& available)
{
    window.setSize(window.size().boundedTo(available.size() - kDecoration));
    const QPoint last = available.bottomRight() - QPoint(kDecoration.width(), kDecoration.height()) -
                        QPoint(window.width(), window.height()) + QPoint(1, 1);
    window.moveLeft(std::max(std::min(window.left(), last.x()), available.left()));
    window.moveTop(std::max(std::min(window.top(), last.y()), available.top()));
    return window;
}

} // namespace

WindowPlace placeOnScreens(const std::vector<WindowPlace>& kept, const std::vector<ScreenArea>& screens,
                           const QSize& preferred)
{
    const auto stand = [](const WindowPlace& place, const ScreenArea& screen) {
        return WindowPlace{.screen = screen.name,
                           .screenSize = screen.whole.size(),
                           .place = fitted(place.place.translated(screen.whole.topLeft()), screen.available),
                           .maximized = place.maximized};
    };
    for (const WindowPlace& last : kept) {
        for (const ScreenArea& screen : screens) {
            if (last.screen == screen.name) { // of another size, it is another projector or has other settings
                const auto same = std::find_if(kept.begin(), kept.end(),
                                               [&](const WindowPlace& each) { return isKeptFor(each, screen); });
                return stand(same == kept.end() ? last : *same, screen);
            }
        }
    }
    const ScreenArea& main = screens.front();
    QRect middle(QPoint(), preferred + kDecoration);
    middle.moveCenter(main.available.center() - main.whole.topLeft());
    return stand({.screen = {}, .screenSize = {}, .place = {middle.topLeft(), preferred}}, main);
}

WindowPlaceKeeper::WindowPlaceKeeper(QWidget& window) : window_(window)
{
    if (const std::vector<ScreenArea> screens = connectedScreens(); !screens.empty()) {
        std::vector<WindowPlace> kept = keptPlaces();
        for (WindowPlace& each : kept) {
            each.place.setSize(each.place.size().expandedTo(window.minimumSize()));
        }
        const WindowPlace place = placeOnScreens(kept, screens, window.size());
        window.setMinimumSize(window.minimumSize().boundedTo(place.place.size())); // the screen may be smaller
        window.resize(place.place.size());
        window.move(place.place.topLeft());
        normal_ = place.place;
        if (place.maximized) {
            window.setWindowState(window.windowState() | Qt::WindowMaximized);
        }
    }
    timer_.setSingleShot(true);
    timer_.setInterval(kBeforeKeeping);
    connect(&timer_, &QTimer::timeout, this, &WindowPlaceKeeper::keep);
    window.installEventFilter(this);
}

WindowPlaceKeeper::~WindowPlaceKeeper()
{
    if (timer_.isActive()) {
        keep();
    }
}

bool WindowPlaceKeeper::eventFilter(QObject* watched, QEvent* event)
{
    const bool moves =
        event->type() == QEvent::Move || event->type() == QEvent::Resize || event->type() == QEvent::WindowStateChange;
    if (moves && window_.isVisible()) {
        timer_.start();
    }
    return QObject::eventFilter(watched, event);
}

void WindowPlaceKeeper::keep()
{
    timer_.stop();
    if (window_.isMinimized() || window_.isFullScreen()) {
        return;
    }
    const ScreenArea screen = areaOf(*window_.screen());
    if (!window_.isMaximized()) { // the normal geometry that Qt gives does not tell whether it counts from the frame
        normal_ = {window_.pos(), window_.size()};
    }
    std::vector<WindowPlace> places = keptPlaces();
    places.erase(
        std::remove_if(places.begin(), places.end(), [&](const WindowPlace& each) { return isKeptFor(each, screen); }),
        places.end());
    places.insert(places.begin(), {.screen = screen.name,
                                   .screenSize = screen.whole.size(),
                                   .place = normal_.translated(-screen.whole.topLeft()),
                                   .maximized = window_.isMaximized()});
    places.resize(std::min(places.size(), kMostScreens));
    keepPlaces(places);
}

} // namespace orvan::desk

// WindowPlace: the size and place of the desk's window, kept for each screen.
//
// The window comes back on the screen where it was last, as it stood there. Where that screen is not connected, it
// comes up on another one, as it stood on that one. A window is always shown with its whole title bar on a screen, and
// smaller than it was where the screen is smaller. Thread: the user-interface thread.
#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>

#include <vector>

class QWidget;

namespace orvan::desk {

/// A screen that is connected: its name, the whole of it, and the part that no task bar covers.
struct ScreenArea {
    QString name;
    QRect whole;
    QRect available;
};

/// How the window stood on a screen.
struct WindowPlace {
    QString screen;
    QSize screenSize;
    QRect place; ///< Corner of the window's frame, from the screen's corner, and size of the window without its frame.
    bool maximized = false;

    bool operator==(const WindowPlace&) const = default;
};

/// The place for a window: `kept` has the last place first, `screens` the main screen first; `preferred` is the size of
/// a window about which nothing is kept. The result's corner counts from the corner of the whole desktop.
[[nodiscard]] WindowPlace placeOnScreens(const std::vector<WindowPlace>& kept, const std::vector<ScreenArea>& screens,
                                         const QSize& preferred);

/// Gives a window that has not been shown yet its place, and keeps each place that it is moved to.
class WindowPlaceKeeper : public QObject {
public:
    explicit WindowPlaceKeeper(QWidget& window);
    ~WindowPlaceKeeper() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keep();

    QWidget& window_;
    QRect normal_; ///< Corner of the frame and size of the window, when it was not maximized.
    QTimer timer_; ///< Runs from a move to its keeping, so that dragging a window does not write at each step.
};

} // namespace orvan::desk

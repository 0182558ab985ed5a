// ButtonPicture: the pictures of buttons, drawn as shapes in the colours of the user's palette.
//
// The pictures are shapes and not images, so that they are sharp at any scale and visible on light and dark buttons.
// Thread: the user-interface thread.
#pragma once

#include <QIcon>

#include <string_view>

class QWidget;

namespace orvan::qt {

/// Width and height of a button's picture, in device-independent pixels.
inline constexpr int kButtonPictureSize = 16;

/// The picture of that name ("add", "delete", "up", "down", "first", "previous", "next", "last", "save", "cancel") in
/// the colours of `widget`, or in those of the application after the widget has been destroyed. Raises 380 for a name
/// that has no picture.
[[nodiscard]] QIcon buttonPicture(std::string_view name, const QWidget& widget);

} // namespace orvan::qt

// The desk's colours: light, dark, or whichever of the two the desktop is.
#pragma once

#include <QString>

namespace orvan::desk {

enum class Theme { system, light, dark };

/// The theme with the name "light" or "dark"; the system's theme for any other name.
Theme themeNamed(const QString& name);
QString themeName(Theme theme);

/// Gives the whole application the theme. May be called any number of times, once there is a QApplication.
void applyTheme(Theme theme);

} // namespace orvan::desk

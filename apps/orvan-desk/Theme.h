// The desk's colours: light, dark, or whichever of the two the desktop is.
#pragma once

#include <QString>

namespace orvan::desk {

enum class Theme { system, light, dark };

/// "light", "dark"; anything else is the system's.
Theme themeNamed(const QString& name);
QString themeName(Theme theme);

/// Gives the whole application the theme. To be called after QApplication, any number of times.
void applyTheme(Theme theme);

} // namespace orvan::desk

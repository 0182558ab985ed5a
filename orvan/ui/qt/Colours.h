// Colours: shades between two colours of the user's palette, so that light and dark themes both work.
#pragma once

#include <QColor>

namespace orvan::qt {

/// `share` (0 to 1) of the way from one colour to the other.
inline QColor between(const QColor& from, const QColor& to, float share)
{
    const auto mix = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

} // namespace orvan::qt

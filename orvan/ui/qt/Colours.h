// Colours: shades between two colours of the user's palette, so that light and dark themes both work.
#pragma once

#include <QColor>

namespace orvan::qt {

/// A mixture of two colours: `from` for a share of 0, `to` for a share of 1.
inline QColor between(const QColor& from, const QColor& to, float share)
{
    const auto mix = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

} // namespace orvan::qt

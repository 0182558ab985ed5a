// Colours: shades between two colours of the user's palette, so that light and dark themes both work.
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace orvan::qt {

/// A mixture of two colours: `from` for a share of 0, `to` for a share of 1.
inline QColor between(const QColor& from, const QColor& to, float share)
{
    const auto mix = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

/// Contrast ratios that the Web Content Accessibility Guidelines ask for.
inline constexpr double kEdgeContrast = 3;
inline constexpr double kTextContrast = 4.5;

/// The contrast ratio of two colours by the Web Content Accessibility Guidelines, from 1 to 21.
inline double contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// The first mixture of `from` and `to` that has the contrast with all grounds; `to` if there is none.
inline QColor visibleOn(std::initializer_list<QColor> grounds, const QColor& from, const QColor& to, double least)
{
    constexpr int kSteps = 20;
    for (int step = 0; step < kSteps; ++step) {
        const QColor mixture = between(from, to, float(step) / kSteps);
        if (std::all_of(grounds.begin(), grounds.end(),
                        [&](const QColor& ground) { return contrast(mixture, ground) >= least; })) {
            return mixture;
        }
    }
    return to;
}

} // namespace orvan::qt

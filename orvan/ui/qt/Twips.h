// Twips: conversion between the library's lengths (twips) and Qt's (device-independent pixels of 15 twips).
//
// Thread: any.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace orvan::qt {

inline constexpr std::int32_t kTwipsPerPixel = 15;
/// The largest coordinate or size of a widget in Qt.
inline constexpr float kLargestPixel = 16777215.0F;

/// Converts to the nearest pixel; a length that is too large for Qt becomes kLargestPixel.
inline int toPixels(float twips)
{
    return static_cast<int>(std::lround(std::clamp(twips / float(kTwipsPerPixel), -kLargestPixel, kLargestPixel)));
}

inline float toTwips(int pixels)
{
    return static_cast<float>(pixels) * float(kTwipsPerPixel);
}

} // namespace orvan::qt

// The three small rules that bring angles and coordinates in order. All values are singles, angles radians.
#pragma once

#include "catalogue/track_geometry.h"

namespace pistaro {

/// Twice the circle constant, rounded to single as every comparison takes it.
inline constexpr float TwoPi = static_cast<float>(2 * PiValue);

/// `angle` brought towards 0..2 pi by one correction at most.
constexpr float NormaliseAngle(float angle) {
    if (angle > TwoPi) return static_cast<float>(angle - 2 * PiValue);
    if (angle < 0) return static_cast<float>(angle + 2 * PiValue);
    return angle;
}

/// The smaller of two values; with equal ones the first.
constexpr float MinSingle(float a, float b) { return a > b ? b : a; }

/// The greater of two values; with equal ones the second.
constexpr float MaxSingle(float a, float b) { return a > b ? a : b; }

} // namespace pistaro

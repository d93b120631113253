// Headings as vectors.
#pragma once

#include <cmath>

namespace pistaro {

/// A unit vector in double precision.
struct Direction {
    double X, Y;
};

/// Cosine and sine of a heading: always the standard library's, by which saved designs were laid out.
inline Direction Towards(double heading) { return {std::cos(heading), std::sin(heading)}; }

} // namespace pistaro

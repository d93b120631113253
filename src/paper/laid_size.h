// How large a circuit is on the floor, in words, and lengths of track that are easily told.
#pragma once

#include "paper/circuit_drawing.h"

#include <string>

namespace pistaro {

/// "2.81 × 1.54 m", "15.5 × 35 cm", "110.8 × 60.7 in": of the pieces; empty where there are none.
std::string LaidSizeText(const CircuitDrawing& drawing);

/// A round length, to be drawn as a bar of so many parts.
struct TrackRule {
    double Length = 0; ///< cm
    int Parts = 1;
    std::string Text; ///< "50 cm", "2 m", "20 in"
};

/// The longest of at most so many cm.
TrackRule LongestRule(double most, const Units& units);

} // namespace pistaro

// What tracks look like: what a bed is made of, and its areas for whoever fills polygons.
#pragma once

#include "layout/placement.h"
#include "model/colour_scheme.h"

#include <vector>

namespace pistaro {

inline constexpr Colour AsphaltColour = Rgb(0x58, 0x5E, 0x67);
inline constexpr Colour LeftLaneColour = Rgb(0xFF, 0xD5, 0x4A);
inline constexpr Colour RightLaneColour = Rgb(0x7F, 0xD6, 0xFF);
inline constexpr Colour SlotColour = Rgb(0x20, 0x23, 0x27);
inline constexpr Colour KerbWhite = Rgb(0xF2, 0xF2, 0xF0);
inline constexpr Colour KerbRed = Rgb(0xC8, 0x3C, 0x36);
inline constexpr double RailWidth = 1.3; ///< cm, of both rails with the slot between them
inline constexpr double SlotWidth = 0.5; ///< cm
inline constexpr double KerbWidth = 1.2; ///< cm
inline constexpr double KerbBlock = 3.2; ///< cm along the edge

struct FilledArea {
    std::vector<WorldPoint> Polygon; ///< not closed by a repeated point
    Colour Fill = 0;
};

/// All of a piece's bed in the order of painting: asphalt, kerb, lanes, and of a track's first piece the start's marks.
/// No edge strays further than 0.01 cm from its arc.
std::vector<FilledArea> BedOf(const PiecePlacement& placement, bool isFirst);

/// The chequered line across the track where it begins, and an arrow the way the cars go.
std::vector<FilledArea> StartMarksOf(const Corners& corners);

} // namespace pistaro

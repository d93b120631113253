// A design in a picture of a few hundred pixels: beds that can be told from each other and from the floor, and nothing
// on them that would be too fine to see.
#pragma once

#include "catalogue/catalogue.h"
#include "imaging/painter_surface.h"
#include "model/design.h"

#include <vector>

namespace pistaro {

/// Elements of a track, in their order. Beside a single track the others recede.
struct MarkedPieces {
    std::vector<int> Kept = {}, New = {};
    int Track = AllTracks;
};

/// A bed's colour where nothing marks the piece, and where it is new.
inline constexpr Colour SmallScalextricBed = Rgb(0x5E, 0x62, 0x68);
inline constexpr Colour SmallNincoBed = Rgb(0x44, 0x62, 0x8E);
inline constexpr Colour SmallNewBed = Rgb(0xE0, 0x85, 0x14);

/// The room's floor, where walls enclose one.
Colour SmallFloor(const ColourScheme& colours);

/// Draws floor, walls and tracks with the painter of the surface, which shows the view: what is marked as kept in the
/// colour of the selected piece, what is new in one of its own; each track's first piece has a line and an arrow.
void DrawSmallPicture(const Catalogue& catalogue, const Design& design, const ColourScheme& colours,
                      const MarkedPieces& marked, QPainter& painter, PainterSurface& surface);

} // namespace pistaro

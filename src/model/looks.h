// How a window shows what it works on: no part of a circuit or of the settings, kept with the window's own.
#pragma once

namespace pistaro {

struct Looks {
    bool Surface = false; ///< tracks are drawn as they look, under their lines
    bool Legend = false;
    bool Lanes = false;       ///< each lane is painted in its own colour
    bool Suggestions = false; ///< the best closing of the current track is shown
    bool Columns = true;      ///< at the sides of the drawing; without it both are folded away
    bool PieceColumn = true;  ///< the left one is among them
    bool TrackColumn = true;  ///< the right one

    bool operator==(const Looks&) const = default;
};

} // namespace pistaro

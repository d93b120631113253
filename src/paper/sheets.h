// How a drawing is parted into sheets of paper: one that holds all of it, or tiles to be cut and laid side by side.
#pragma once

#include "paper/circuit_drawing.h"
#include "paper/paper_size.h"

#include <optional>
#include <string>
#include <vector>

namespace pistaro {

enum class Orientation { Automatic, Portrait, Landscape };

struct SheetOptions {
    std::optional<double> Scale = {};    ///< the N of 1:N; none: as large as the paper takes it, at most 1:1
    std::optional<PaperSize> Paper = {}; ///< none: a sheet as large as the drawing at its scale
    pistaro::Orientation Orientation = pistaro::Orientation::Automatic;
    bool RoundScale = false; ///< on one sheet without a scale: RoundedScale of what the paper takes
    bool Tiles = false;
    bool Header = true;    ///< a line of words above and a rule below the drawing
    bool Guides = false;   ///< what helps who lays the track by it; several tiles have that always
    bool WallTiles = true; ///< also those of a circuit's tiles that show nothing of it but the room's walls
};

struct Sheet {
    std::string Name; ///< "A1": column and row; empty where there is but one
    Box Cell;         ///< what of the world stays of it when it is cut
    Box Part;         ///< what it shows: with the strips that overlap its neighbours
    long long Row = 0, Column = 0;
};

struct SheetPlan {
    double Width = 0, Height = 0; ///< of the paper as it lies, cm
    double Scale = 1;             ///< the N of 1:N
    bool Header = false;
    bool Guides = false; ///< the circuit's size, a rule of track, and numbers clear of lines
    bool Tiled = false;
    std::vector<Sheet> Sheets; ///< those that hold something, by rows from the top
    Box Whole;                 ///< what of the world all of them cover
    std::size_t LeftOut = 0;   ///< tiles that would show nothing but walls

    /// Where on the paper a sheet's part is drawn, cm from its lower left corner.
    Box Area() const;
    /// "1:2.5"
    std::string ScaleText() const;
    /// The tile so many columns to the right and rows below; null where none is.
    const Sheet* Beside(const Sheet& sheet, int right, int below) const;
};

inline constexpr int MostTiles = 10000;
inline constexpr double SheetMargin = 1;   ///< cm of paper that stay white on each side
inline constexpr double StripHeight = 0.8; ///< of the words above and of the rule below, cm
inline constexpr double TileOverlap = 1;   ///< of neighbouring tiles, cm of paper

/// The next N from there on of a scale that a ruler is read at easily: 1, 1.5, 2, 2.5, 3, 4, 5, 6, 8, 10 and so on.
double RoundedScale(double scale);

/// A single sheet shows all of a background, tiles what of it lies around strokes. Faults: more than MostTiles tiles; a
/// single sheet that cannot hold the drawing at that scale.
SheetPlan PlanSheets(const CircuitDrawing& drawing, const SheetOptions& options);

} // namespace pistaro

// Which tiles of a grid a drawing touches.
#pragma once

#include "paper/circuit_drawing.h"

#include <compare>
#include <set>

namespace pistaro {

/// Tiles of one size, in columns from the left and rows from the top; cm of the world.
struct TileGrid {
    double Left, Top, Width, Height;
    double Columns, Rows;
};

struct Tile {
    long long Row = 0, Column = 0; ///< from 0

    auto operator<=>(const Tile&) const = default;
};

enum class Walls { Count, DoNotCount };

/// The tiles that a stroke of the drawing crosses or a numbered piece has its middle in; the grid alone makes no tile
/// worth its paper, nor do the room's walls where they do not count. The search ends when they are more than `most`.
std::set<Tile> TilesOf(const CircuitDrawing& drawing, const TileGrid& grid, std::size_t most, Walls walls);

} // namespace pistaro

#include "paper/tile_set.h"

#include "layout/piece_middle.h"
#include "paper/chord_surface.h"
#include "render/redraw.h"

#include <cmath>

namespace pistaro {

namespace {

/// Keeps the tiles below strokes.
class TileSurface : public ChordSurface {
public:
    TileSurface(const TileGrid& grid, std::size_t most) : grid_(grid), most_(most) {}

    bool IsFull() const { return Tiles.size() > most_; }

    std::set<Tile> Tiles;

private:
    /// Column by column, all rows between where the line comes into it and where it leaves.
    void Add(double fromX, double fromY, double toX, double toY) override {
        if (fromX > toX) return Add(toX, toY, fromX, fromY);
        const double rise = toX > fromX ? (toY - fromY) / (toX - fromX) : 0;
        for (long long column = ColumnAt(fromX); column <= ColumnAt(toX) && !IsFull(); ++column) {
            const double left = std::max(fromX, grid_.Left + static_cast<double>(column) * grid_.Width);
            const double right = std::min(toX, grid_.Left + static_cast<double>(column + 1) * grid_.Width);
            const double enter = toX > fromX ? fromY + (left - fromX) * rise : fromY;
            const double leave = toX > fromX ? fromY + (right - fromX) * rise : toY;
            for (long long row = RowAt(std::max(enter, leave)); row <= RowAt(std::min(enter, leave)) && !IsFull();
                 ++row)
                Tiles.insert({row, column});
        }
    }

    /// What lies on the far edge, or by rounding beyond it, belongs to the last tile.
    static long long Place(double tiles, double count) {
        return static_cast<long long>(std::clamp(std::floor(tiles), 0.0, count - 1));
    }
    long long ColumnAt(double x) const { return Place((x - grid_.Left) / grid_.Width, grid_.Columns); }
    long long RowAt(double y) const { return Place((grid_.Top - y) / grid_.Height, grid_.Rows); }

    TileGrid grid_;
    std::size_t most_;
};

} // namespace

std::set<Tile> TilesOf(const CircuitDrawing& drawing, const TileGrid& grid, std::size_t most, Walls walls) {
    TileSurface surface(grid, most);
    for (const DrawnPiece& piece : drawing.Pieces) {
        if (surface.IsFull()) break;
        DrawPiece(piece.Placement, 0, 0, surface);
        if (drawing.Parts.Numbers) surface.DrawPoint(MiddleOfPiece(piece.Placement), 0);
    }
    if (walls == Walls::Count) DrawRoom(drawing.Room, surface);
    return surface.Tiles;
}

} // namespace pistaro

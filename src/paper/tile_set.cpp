#include "paper/tile_set.h"

#include "render/redraw.h"

#include <cmath>
#include <numbers>

namespace pistaro {

namespace {

/// Takes strokes as a surface does, and keeps the tiles below them instead of drawing.
class TileSurface : public Surface {
public:
    TileSurface(const TileGrid& grid, std::size_t most) : grid_(grid), most_(most) {}

    void Clear(Colour) override {}
    void SetScale(const ViewRectangle&) override {}
    double PixelsPerCm() const override { return 1; }
    void SetPen(PenWidth) override {}
    void SetFontSize(double) override {}
    void DrawText(const std::string&, Colour) override {}

    void Draw(const LineSegment& line, Colour) override { Add(line.From.X, line.From.Y, line.To.X, line.To.Y); }

    void Draw(const ArcSegment& arc, Colour) override {
        AddArc({arc.Centre.X, arc.Centre.Y, arc.Radius, arc.Radius}, arc.Start, SpanOf(arc));
    }

    void Draw(const Ellipse& ellipse, Colour) override {
        AddArc({ellipse.Centre.X, ellipse.Centre.Y, ellipse.Radius, ellipse.Radius * ellipse.Aspect}, 0,
               2 * std::numbers::pi);
    }

    void DrawPoint(WorldPoint point, Colour) override { Add(point.X, point.Y, point.X, point.Y); }

    bool IsFull() const { return Tiles.size() > most_; }

    std::set<Tile> Tiles;

private:
    struct Axes {
        double X, Y, Across, Up;
    };

    /// As chords: none strays from its arc as far as a line is wide.
    void AddArc(const Axes& axes, double start, double span) {
        constexpr double chordAngle = 0.02;
        const int chords = std::max(1, static_cast<int>(std::ceil(span / chordAngle)));
        const auto at = [&](int i) { return start + span * i / chords; };
        for (int i = 0; i < chords; ++i) {
            Add(axes.X + axes.Across * std::cos(at(i)), axes.Y + axes.Up * std::sin(at(i)),
                axes.X + axes.Across * std::cos(at(i + 1)), axes.Y + axes.Up * std::sin(at(i + 1)));
        }
    }

    /// Column by column, all rows between where the line comes into it and where it leaves.
    void Add(double fromX, double fromY, double toX, double toY) {
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
        if (drawing.Parts.Numbers) surface.DrawPoint(piece.Placement.Label, 0);
    }
    if (walls == Walls::Count) DrawRoom(drawing.Room, surface);
    return surface.Tiles;
}

} // namespace pistaro

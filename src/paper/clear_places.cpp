#include "paper/clear_places.h"

#include "paper/chord_surface.h"
#include "render/redraw.h"

#include <algorithm>

namespace pistaro {

namespace {

/// Notes whether a stroke runs through a box.
class StrokeFinder : public ChordSurface {
public:
    explicit StrokeFinder(const Box& box) : box_(box) {}

    bool Found = false;

private:
    /// Keeps of the line what lies between two uprights, then what of that between two levels.
    void Add(double fromX, double fromY, double toX, double toY) override {
        double first = 0, last = 1;
        const auto keep = [&](double from, double way, double low, double high) {
            if (way == 0) {
                if (from < low || from > high) last = -1;
                return;
            }
            const double one = (low - from) / way, other = (high - from) / way;
            first = std::max(first, std::min(one, other));
            last = std::min(last, std::max(one, other));
        };
        keep(fromX, toX - fromX, box_.Left, box_.Right);
        keep(fromY, toY - fromY, box_.Bottom, box_.Top);
        Found = Found || first <= last;
    }

    Box box_;
};

} // namespace

bool IsClearOfWalls(const RoomPolygon& room, const Box& box) {
    StrokeFinder finder(box);
    DrawRoom(room, finder);
    return !finder.Found;
}

bool IsClearOfStrokes(const CircuitDrawing& drawing, const Box& box) {
    StrokeFinder finder(box);
    for (const DrawnPiece& piece : drawing.Pieces) {
        if (!finder.Found && piece.Extent.Meets(box)) DrawPiece(piece.Placement, 0, 0, finder);
    }
    return !finder.Found && IsClearOfWalls(drawing.Room, box);
}

Box ClearestOf(const std::vector<Box>& boxes, const CircuitDrawing& drawing, const std::vector<Box>& taken) {
    const auto found = std::ranges::find_if(boxes, [&](const Box& box) {
        return std::ranges::none_of(taken, [&](const Box& other) { return other.Meets(box); }) &&
               IsClearOfStrokes(drawing, box);
    });
    return found == boxes.end() ? boxes.front() : *found;
}

} // namespace pistaro

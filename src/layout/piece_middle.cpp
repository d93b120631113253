#include "layout/piece_middle.h"

#include "layout/ground.h"

#include <cmath>

namespace pistaro {

WorldPoint PointBy(double x, double y) { return {static_cast<float>(x), static_cast<float>(y)}; }

WorldPoint Between(WorldPoint one, WorldPoint other) {
    return PointBy((double{one.X} + other.X) / 2, (double{one.Y} + other.Y) / 2);
}

double Distance(WorldPoint from, WorldPoint to) { return std::hypot(double{from.X} - to.X, double{from.Y} - to.Y); }

WorldPoint MiddleOfPiece(const PiecePlacement& placement) {
    const GroundPoint middle = MiddleOf(GroundOf(placement));
    return PointBy(middle.X, middle.Y);
}

Way AcrossEntry(const Corners& corners) {
    const double length = Distance(corners.Entry, corners.OtherEntry);
    if (length == 0) return {};
    return {(double{corners.OtherEntry.X} - corners.Entry.X) / length,
            (double{corners.OtherEntry.Y} - corners.Entry.Y) / length};
}

Way AcrossMiddle(const Corners& corners) {
    const WorldPoint from = Between(corners.Entry, corners.Exit);
    const WorldPoint to = Between(corners.OtherEntry, corners.OtherExit);
    const double length = Distance(from, to);
    if (length == 0) return AcrossEntry(corners);
    return {(double{to.X} - from.X) / length, (double{to.Y} - from.Y) / length};
}

} // namespace pistaro

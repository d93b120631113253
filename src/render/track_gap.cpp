// Angles are brought to the shorter way round, so that a full turn is no gap.
#include "render/track_gap.h"

#include "catalogue/track_geometry.h"
#include "render/placement.h"

#include <cmath>

namespace pistaro {

TrackGap GapBetween(const BuildCursor& start, const BuildCursor& end) {
    const double angle = double{end.CursorHeading} - start.CursorHeading;
    return {static_cast<float>(std::hypot(double{end.CursorX} - start.CursorX, double{end.CursorY} - start.CursorY)),
            static_cast<float>(angle - 2 * PiValue * std::round(angle / (2 * PiValue)))};
}

TrackGap GapOf(const Track& track) {
    const BuildCursor end = WalkTrack(track, [](int, const PiecePlacement*, const BuildCursor&) {});
    return GapBetween(track.Start(), end);
}

} // namespace pistaro

// Angles are brought to the shorter way round, so that a full turn is no gap.
#include "layout/track_gap.h"

#include "catalogue/track_geometry.h"
#include "layout/exit.h"

#include <cmath>

namespace pistaro {

TrackGap GapBetween(const BuildCursor& start, const BuildCursor& end) {
    const double angle = double{end.CursorHeading} - start.CursorHeading;
    return {static_cast<float>(std::hypot(double{end.CursorX} - start.CursorX, double{end.CursorY} - start.CursorY)),
            static_cast<float>(angle - 2 * PiValue * std::round(angle / (2 * PiValue)))};
}

bool IsWithin(const TrackGap& gap, double distance, float angle) {
    return gap.Distance <= distance && std::fabs(gap.Angle) <= angle;
}

TrackGap GapOf(const Catalogue& catalogue, const Track& track) {
    Pose pose = track.Start();
    for (const std::string& code : track.ElementCodes) {
        if (const CatalogueEntry* const piece = catalogue.Find(code)) pose = ExitOf(piece->Kind, pose);
    }
    return GapBetween(track.Start(), pose);
}

} // namespace pistaro

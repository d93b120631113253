// What a search takes for a piece: where it leads to, from each of the headings that pieces can have.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/ground.h"
#include "search/piece_box.h"

#include <array>
#include <optional>
#include <vector>

namespace pistaro {

/// All pieces turn by a multiple of 11.25 degrees: there are so many headings.
inline constexpr int HeadingCount = 32;

/// The heading's angle, radians.
constexpr double AngleOf(int heading) { return heading * (2 * PiValue / HeadingCount); }

/// A cursor on that lattice of headings. Its point is in double precision: it is for looking for pieces, not for laying
/// them.
struct SearchPose {
    double X = 0, Y = 0; ///< cm
    int Heading = 0;     ///< 0 to HeadingCount - 1
};

/// Where a cursor points to, on the lattice.
SearchPose NearestPose(const BuildCursor& cursor);

/// The directions of the headings.
inline const std::array<Direction, HeadingCount>& DirectionsOfHeadings() {
    static const std::array<Direction, HeadingCount> directions = [] {
        std::array<Direction, HeadingCount> all{};
        for (int heading = 0; heading < HeadingCount; ++heading)
            all[static_cast<std::size_t>(heading)] = Towards(AngleOf(heading));
        return all;
    }();
    return directions;
}

/// The point turned about the origin.
inline GroundPoint Turned(GroundPoint point, int heading) {
    const Direction across = DirectionsOfHeadings()[static_cast<std::size_t>(heading)];
    return {point.X * across.X - point.Y * across.Y, point.X * across.Y + point.Y * across.X};
}

/// The pose that lies to `frame` as `pose` lies to the origin.
inline SearchPose Beyond(const SearchPose& frame, const SearchPose& pose) {
    const GroundPoint turned = Turned({pose.X, pose.Y}, frame.Heading);
    return {frame.X + turned.X, frame.Y + turned.Y, (frame.Heading + pose.Heading) % HeadingCount};
}

/// How `pose` lies to `frame`.
inline SearchPose Relative(const SearchPose& frame, const SearchPose& pose) {
    const int back = (HeadingCount - frame.Heading) % HeadingCount;
    const GroundPoint turned = Turned({pose.X - frame.X, pose.Y - frame.Y}, back);
    return {turned.X, turned.Y, (pose.Heading + back) % HeadingCount};
}

/// One hand of a shape.
struct LayingStep {
    int Row = 0;                                  ///< of the basic piece in the catalogue
    int Shape = 0;                                ///< its head row
    TrackSystem Entry{}, Exit{};                  ///< the systems that it joins; of all but adapters the same
    int Turn = 0;                                 ///< in headings, to the left above 0
    std::array<GroundPoint, HeadingCount> Move{}; ///< from entry to exit, by the entry's heading
    bool IsStraight = false;
    std::vector<int> Kept = {}; ///< of the step that stands for the part that is kept: its pieces' rows

    /// Whether it stays where it is in a loop: it joins systems, or is what is kept.
    bool Stays() const { return JoinsSystems() || !Kept.empty(); }
    bool JoinsSystems() const { return Entry != Exit; }
    SearchPose After(const SearchPose& pose) const {
        const GroundPoint move = Move[static_cast<std::size_t>(pose.Heading)];
        return {pose.X + move.X, pose.Y + move.Y, ((pose.Heading + Turn) % HeadingCount + HeadingCount) % HeadingCount};
    }
};

/// Pieces by shape, on the basic pieces' head rows.
using ShapeCounts = std::vector<int>;

/// The steps that pieces of these shapes can make, an adapter's two ways being two steps.
std::vector<LayingStep> StepsOf(const Catalogue& catalogue, const ShapeCounts& shapes);

/// The one step that stands for a part that is kept, of a shape of its own. Nothing where its pieces lead off the
/// lattice, or the part does not begin and end within one system.
std::optional<LayingStep> KeptStep(const Catalogue& catalogue, const std::vector<int>& rows, int shape);

} // namespace pistaro

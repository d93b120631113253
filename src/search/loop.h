// Closed chains of pieces and where they lie.
#pragma once

#include "layout/ground_grid.h"
#include "layout/room_fit.h"
#include "layout/track_gap.h"
#include "search/random.h"
#include "search/run_table.h"

#include <optional>
#include <vector>

namespace pistaro {

/// How far from closing a circuit that is laid may be, cm and radians.
inline constexpr double LoopTolerance = 0.05;
inline constexpr double LoopAngleTolerance = 0.001;

/// A closed chain of steps.
struct Loop {
    Run Steps;
    SearchPose Start;
    double Tolerance = LoopTolerance; ///< how far from closing it may be, cm

    /// Where its first piece is laid: in numbers of few digits, which a circuit file keeps.
    BuildCursor Cursor() const;
};

/// The catalogue's rows of a chain's pieces, in the order of laying.
using Rows = std::vector<int>;
Rows RowsOf(const std::vector<LayingStep>& steps, const Run& run);

/// A chain of the plain pieces in whose places these lie, where it is a circuit free of overlaps and of those shapes,
/// closed but for a centimetre, which then is its tolerance; else nothing. The last step stands for the first `kept`
/// pieces where there are any. Circuits of both systems give nothing.
std::optional<Loop> LoopOf(const Catalogue& catalogue, const std::vector<LayingStep>& steps, ShapeCounts shapes,
                           const Rows& rows, const SearchPose& start, std::size_t kept = 0);

/// A chain as it lies.
struct LaidLoop {
    std::vector<Ground> Grounds;
    GroundBox Box; ///< around them all
    TrackGap Gap;
};

/// Lays pieces from a start.
LaidLoop LayLoop(const Catalogue& catalogue, const Rows& rows, const BuildCursor& start);

bool IsClosed(const LaidLoop& laid, double tolerance);

/// Whether a piece overlaps one that is not its neighbour; the last and the first are neighbours. Pieces of the same
/// part lie to each other as they lay before, free of overlaps. `parts` may be empty: then no piece does.
bool OverlapsItself(const LaidLoop& laid, const std::vector<int>& parts);

/// By how many headings the run turns, to the left above 0.
int TurnOf(const std::vector<LayingStep>& steps, const Run& run);

/// Whether the run turns by a whole circle, to either side.
bool IsWholeTurn(const std::vector<LayingStep>& steps, const Run& run);

/// Whether two adapters follow each other, the last step and the first being neighbours: with nothing between them they
/// join nothing. What is kept may begin in one system and end in the other.
bool HasAdaptersInARow(const std::vector<LayingStep>& steps, const Run& run);

/// The room that loops must lie in.
class LoopRoom {
public:
    /// Loops may reach into a wall by a touch, cm: by nothing where they are laid anew. Below 0 it is what they keep
    /// from every wall. They may not overlap the ground that is taken.
    explicit LoopRoom(const RoomPolygon& room, double touch = 0, std::vector<Ground> taken = {});

    /// A touch that a part is allowed which its user has laid.
    static constexpr double UsersTouch = 0.01;

    /// Of the box around its walls, less what is kept from them and what a loop may be moved by as its start is
    /// rounded; cm.
    double Width() const { return extent_.Right - extent_.Left; }
    double Height() const { return extent_.Top - extent_.Bottom; }

    /// Whether everything lies inside as it is.
    bool Holds(const LaidLoop& laid) const;

    /// By how much the loop must be moved to lie inside: as little as the room's extent asks for, else by one of a few
    /// random distances. Nothing where none of them will do.
    std::optional<GroundPoint> ShiftInto(const LaidLoop& laid, Random& random) const;

    /// By how much a loop that lies inside must be moved to lie in the middle of the room's extent, or on the way there
    /// where walls and pillars leave it more room.
    GroundPoint ShiftToMiddle(const LaidLoop& laid) const;

    /// The distance of the pieces from the nearest wall, cm.
    double DistanceToWalls(const LaidLoop& laid) const;

private:
    /// The distances of the pieces from each wall, cm, were the loop moved.
    std::vector<double> WallDistances(const LaidLoop& laid, GroundPoint shift) const;
    bool Holds(const LaidLoop& laid, GroundPoint shift) const;
    bool Holds(const Ground& ground) const;
    bool IsTooNear(const Wall& wall, const Ground& ground) const;
    bool IsTaken(const Ground& ground) const;

    RoomFit fit_;
    GroundGrid taken_;
    double touch_;
    GroundBox extent_;
};

/// Whether the pieces' entries alone reach farther than the room.
bool IsTooWide(const std::vector<LayingStep>& steps, const Loop& loop, const LoopRoom& room);

/// Whether the loop closes as it is really laid, without overlaps between its `parts`, and finds a place in the room,
/// where it then starts.
bool Settle(const Catalogue& catalogue, const std::vector<LayingStep>& steps, const LoopRoom& room,
            const std::vector<int>& parts, Random& random, Loop& loop);

/// What that counts for where a search counts its effort.
constexpr std::int64_t EffortOfSettling(std::size_t pieces) { return 4 * static_cast<std::int64_t>(pieces); }

} // namespace pistaro

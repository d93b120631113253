// The two ends that a closing joins: where pieces are to be laid from, and where they are to lead to.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/placement.h"
#include "model/circuit.h"
#include "search/piece_shapes.h"

#include <optional>

namespace pistaro {

struct OpenEnds {
    BuildCursor End, Goal;
    std::uint8_t EndSystem = 0, GoalSystem = 0; ///< of the track on either side
    bool AfterAdapter = false;  ///< no adapter may come first: it would lie the wrong way round, or two in a row
    bool BeforeAdapter = false; ///< nor last
};

/// The ends that are open once `remove` elements from `at` on are taken out of a track: what lies behind them is moved
/// to where the track closes. Without elements taken out at the track's end they are the track's own end and start.
/// Nothing where no piece is left that the new ones could join.
std::optional<OpenEnds> OpenEndsOf(const Catalogue& catalogue, const Track& track, int at, int remove);

/// The goal as the lattice that begins at the end sees it; nothing where its heading is not on the lattice.
struct LatticeGoal {
    double X = 0, Y = 0;
    std::uint8_t Heading = 0;
};
std::optional<LatticeGoal> GoalOnLattice(const OpenEnds& ends);

/// How far headings may differ where a track counts as closed, radians.
inline constexpr double ClosedAngle = 0.001;

} // namespace pistaro

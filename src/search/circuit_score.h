// How good a laid circuit is: each part from 0 to 1, and what they weigh.
#pragma once

#include "search/loop.h"
#include "search/piece_box.h"

#include <set>
#include <vector>

namespace pistaro {

/// Stretches of straights, and of curves that turn to the same side, around a circuit.
struct Stretches {
    double LongestStraight = 0; ///< cm
    int LeftCorners = 0, RightCorners = 0;
    int SideChanges = 0;                ///< corners to the other side than the one before
    std::set<std::vector<int>> Corners; ///< different ones, by their curves' products
};
Stretches StretchesOf(const Catalogue& catalogue, Rows rows);

struct ScoreParts {
    double Used = 0;       ///< share of the box's pieces
    double Lanes = 0;      ///< 1 where both lanes, as built, are equally long; 0 from a tenth of difference on
    double Straights = 0;  ///< 1 where the longest is 1 m or more, and no more than 40 % of the lap
    double Corners = 0;    ///< 1 from five different ones on
    double Directions = 0; ///< 1 where it turns by half a turn or more to either side
    double Start = 0;      ///< 1 where it begins on a straight
    double Walls = 0;      ///< 1 where its corners keep 10 cm from all walls
    double Length = 0;     ///< a lap as a share of all track in the box
    double Speed = 0;      ///< 1 where the longest straight is 40 % of the lap or more
    double Winding = 0;  ///< by its bends, those to the other side than the one before twice: 0.5 for 12, 1 for no end
    double Likeness = 0; ///< to the circuit that is varied, up to 1; 0 where it looks the same
};

/// What each part counts for in the whole; none is below 0.
struct ScoreWeights {
    double Used = 6, Lanes = 1, Straights = 1, Corners = 1, Directions = 1, Start = 0.5, Walls = 0.5;
    double Length = 0, Speed = 0, Winding = 0, Likeness = 0;

    bool operator==(const ScoreWeights&) const = default;
};

/// The weighted mean; 0 where nothing weighs anything.
double Score(const ScoreParts& parts, const ScoreWeights& weights);

/// The parts of a closed circuit of a box. `lap` is its length and `laneDifference` that of its lanes, cm.
ScoreParts ScorePartsOf(const Catalogue& catalogue, const Rows& rows, const LaidLoop& laid, const LoopRoom& room,
                        const PieceBox& box, double lap, double laneDifference);

} // namespace pistaro

// Circuits from a box of pieces: closed, free of overlaps, inside a room.
#pragma once

#include "model/circuit.h"
#include "model/job.h"
#include "model/room_polygon.h"
#include "search/circuit_score.h"
#include "search/piece_box.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace pistaro {

struct LayingTask {
    PieceBox Box;
    RoomPolygon Room; ///< has walls
    std::uint64_t Seed = 1;
    int Count = 10; ///< of circuits wished for
    ScoreWeights Weights;
};

struct LaidCircuit {
    pistaro::Track Track;
    double Used = 0;   ///< share of the box's pieces
    double Length = 0; ///< of a lap, cm: the mean of both lanes as built
    TrackGap Gap;
    ScoreParts Parts;
    double Score = 0;
};

struct Laying {
    std::vector<LaidCircuit> Circuits; ///< the best ones first; no two are alike
    bool AreAll = false;               ///< more there are not, however long one looks
};

/// Lays circuits. The effort is counted in steps: the same task gives the same circuits on every machine. `isTimeUp`,
/// which may be empty, ends it earlier, with what is found by then. Throws Stopped.
Laying LayCircuits(const Catalogue& catalogue, const LayingTask& task, const JobWatch& watch,
                   const std::function<bool()>& isTimeUp);

} // namespace pistaro

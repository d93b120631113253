// Circuits from a box of pieces: closed, free of overlaps, inside a room.
#pragma once

#include "layout/ground.h"
#include "model/circuit.h"
#include "model/job.h"
#include "model/room_polygon.h"
#include "search/circuit_look.h"
#include "search/circuit_score.h"
#include "search/must_haves.h"
#include "search/piece_box.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace pistaro {

/// Pieces of a track and where they lie.
struct TrackPart {
    std::vector<int> Rows;
    BuildCursor At; ///< before its first piece

    bool operator==(const TrackPart&) const = default;
};

/// Whether circuits can be laid around such a part: it begins and ends within one system, and holds no piece that leads
/// off the headings that pieces can have.
bool CanKeep(const Catalogue& catalogue, const std::vector<int>& rows);

struct LayingTask {
    PieceBox Box;
    RoomPolygon Room; ///< has walls
    std::uint64_t Seed = 1;
    int Count = 10; ///< of circuits wished for
    ScoreWeights Weights = {};
    MustHaves MustHave = {};
    std::optional<TrackPart> Kept = {};   ///< stays as it is and where it is, with pieces of the box
    std::optional<TrackPart> Varied = {}; ///< a circuit that half the tries are to change; begins with the kept part
    std::vector<Ground> Taken = {};       ///< by other pieces
    int FromWalls = 0;                    ///< how far pieces keep from walls, cm
    std::vector<std::vector<int>> LeftOut = {}; ///< rows of circuits that are known, and not looked for
};

struct LaidCircuit {
    pistaro::Track Track;
    double Used = 0;   ///< share of the box's pieces
    double Length = 0; ///< of a lap, cm: the mean of both lanes as built
    TrackGap Gap;
    ScoreParts Parts;
    double Score = 0;
};

struct FoundCircuit {
    LaidCircuit Circuit;
    CircuitLook Look;
};

/// Which of them are the best by these weights, best first, so many at most: one that looks like another only where
/// there are no others, and what looks quite different before what is much like a better one.
std::vector<std::size_t> BestOf(const std::vector<FoundCircuit>& found, int count, const ScoreWeights& weights);

/// The same by these scores, one for each that was found.
std::vector<std::size_t> BestOf(const std::vector<FoundCircuit>& found, int count, const std::vector<double>& scores);

/// A search that can be watched, and gone on with. Its rounds follow from the task alone.
class CircuitSearch {
public:
    /// The catalogue must outlive it.
    CircuitSearch(const Catalogue& catalogue, LayingTask task);
    ~CircuitSearch();
    CircuitSearch(const CircuitSearch&) = delete;
    CircuitSearch& operator=(const CircuitSearch&) = delete;

    /// Looks on for a moment. False when it has come to its end. Throws Stopped, and cannot be gone on with then; what
    /// it has found is there.
    bool Round(const JobWatch& watch);

    /// Lets a search that has come to its end go on for as long again, and for as many circuits.
    void Continue();

    const std::vector<FoundCircuit>& Found() const;

    /// The share of its effort that is spent, 0 to 1; it may come to its end before.
    double Spent() const;

    /// Whether these are all there are, however long one looks.
    bool IsComplete() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

struct Laying {
    std::vector<LaidCircuit> Circuits; ///< the best ones first; no two are alike
    bool AreAll = false;               ///< more there are not, however long one looks
    bool TimeWasUp = false;            ///< it was ended before the search had come to its end
};

/// Lays circuits. The effort is counted in steps: the same task gives the same circuits on every machine. `ending` ends
/// it earlier, at once, with what is found by then. Throws Stopped.
Laying LayCircuits(const Catalogue& catalogue, const LayingTask& task, const JobWatch& watch,
                   const std::stop_token& ending = {});

} // namespace pistaro

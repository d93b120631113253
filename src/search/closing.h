// Pieces that close a track: fewest first, and of the fewest the cheapest.
#pragma once

#include "layout/track_gap.h"
#include "model/design.h"
#include "model/job.h"
#include "model/stock.h"
#include "search/closing_tables.h"

#include <optional>
#include <string>
#include <vector>

namespace pistaro {

struct ClosingOptions {
    int MostPieces = 8;      ///< 1..MostNewPieces
    int Limit = 10;          ///< suggestions
    double Tolerance = 0.05; ///< cm between the closed track's end and start
    bool OwnedOnly = false;  ///< only pieces that are owned and not used
    int MostRemoved = 0;     ///< neighbouring pieces that may be taken out of the track, so that others are laid there
};

/// A track's elements in whose place others are laid: at its end none.
struct TrackEdit {
    int At = 0, Remove = 0;
    std::vector<std::string> Insert = {};

    bool operator==(const TrackEdit&) const = default;
};

/// Neighbouring elements of a track, 0..2, in whose place others may lie; behind its last element none.
struct TrackPlace {
    int Track = 0, At = 0, Remove = 0;
};

/// Puts an edit's pieces into the track in the place of those that it takes out.
void Apply(const TrackEdit& edit, Track& track);

struct Suggestion {
    TrackEdit Edit;
    float Price = 0;       ///< of the pieces laid
    TrackGap Gap{};        ///< of the track with them
    bool IsOwned = false;  ///< what is owned and not used covers them
    bool Overlaps = false; ///< one of them overlaps a piece that is none of its neighbours; where others are taken out,
                           ///< one of the whole track, as what lies behind them is moved
    bool IsOutside = false;  ///< one of them leaves the room
    bool IsShortest = false; ///< there is none of fewer pieces
    bool IsMend = false;     ///< closes the track by a change within it, which moves what lies behind

    int Count() const { return static_cast<int>(Edit.Insert.size()); }
    bool IsFree() const { return !Overlaps && !IsOutside; }
};

/// The pieces that come nearest to closing a track that nothing closes.
struct NearestMiss {
    std::vector<std::string> Pieces = {}; ///< none: the gap as it is
    float Distance = 0;                   ///< cm
};

struct Closings {
    std::vector<Suggestion> Suggestions = {}; ///< best first: free of faults, then fewest, then cheapest
    std::string WhyNone = {};                 ///< of no suggestions
    std::optional<NearestMiss> Nearest = {};  ///< where nothing closes the track
};

/// The closings of a track, 0..2. The pieces are those of the catalogue but chicanes and their extensions,
/// change-overs, and such as no exact lattice holds; a special piece takes a plain one's place where it is cheaper, or
/// owned where the plain one is not. Throws Stopped.
Closings CloseTrack(const ClosingTables& tables, const Catalogue& catalogue, const Design& design, const Stock& stock,
                    int track, const ClosingOptions& options, const JobWatch& watch);

/// Other pieces for a run of a track's, which lead to where it leads; a gap is that between the two ends. The same that
/// holds for closings holds for them.
std::vector<Suggestion> ReplaceRun(const ClosingTables& tables, const Catalogue& catalogue, const Design& design,
                                   const Stock& stock, const TrackPlace& place, const ClosingOptions& options,
                                   const JobWatch& watch);

} // namespace pistaro

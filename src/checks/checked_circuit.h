// A circuit laid out once for all rules: what each of them asks of it.
#pragma once

#include "checks/finding.h"
#include "layout/built_lanes.h"
#include "layout/ground_grid.h"
#include "layout/room_fit.h"
#include "layout/track_gap.h"
#include "model/money.h"
#include "model/project.h"
#include "stats/design_checks.h"

#include <array>

namespace pistaro {

/// A piece that lies in the drawing.
struct LaidPiece {
    const CatalogueEntry* Piece = nullptr;
    int Element = 0;
    double EntryWidth = 0, ExitWidth = 0; ///< of the track, cm
};

/// How far a track's end is from its start.
enum class Closing {
    Open,
    Pressed, ///< near enough to be pressed together
    Closed,
};

/// Track gives a little: up to 2 cm and 3 degrees its ends can be pressed together.
Closing ClosingOf(const TrackGap& gap);

struct CheckedTrack {
    int Index = 0; ///< 0..2
    const pistaro::Track* Track = nullptr;
    std::vector<LaidPiece> Pieces; ///< without unknown codes
    std::size_t FirstGround = 0;   ///< the place of its first piece among the grounds
    TrackGap Gap{};
    Closing End = Closing::Open;
    BuiltLanes Lanes;

    /// Whether it is more than something begun.
    bool IsWorthwhile() const { return Track->ElementCodes.size() >= 3; }
    /// Whether its last piece leads into its first.
    bool IsRound() const { return IsWorthwhile() && End != Closing::Open; }
};

struct CheckedCircuit {
    /// All that is given must outlive it.
    CheckedCircuit(const Catalogue& catalogue, const Design& design, const Stock& stock, const Units& units,
                   const MoneyMarks& marks = {});

    const Catalogue& Kinds;
    const Stock& Owned;
    const Units& Shown;
    const MoneyMarks Marks;
    std::array<CheckedTrack, TrackCount> Tracks;
    GroundGrid Grounds;                ///< of all pieces, track by track
    std::vector<PieceAddress> PlaceOf; ///< of each ground
    RoomFit Room;
    std::vector<DesignWarning> StatisticsWarnings; ///< what the statistics warn of

    const CatalogueEntry& PieceOf(std::size_t ground) const { return *pieceOf_[ground]; }
    /// "C160 (3)"
    std::string NameOf(PieceAddress place) const;
    /// The first thing that the statistics warn of in this way on this track, or null.
    const DesignWarning* FindStatisticsWarning(DesignCheck check, int track) const;

private:
    void Lay(CheckedTrack& track, std::vector<Ground>& grounds);

    const Circuit& circuit_;
    std::vector<const CatalogueEntry*> pieceOf_;
};

/// The neighbouring numbers among `elements`, which ascend: 3 4 5 | 9.
std::vector<std::vector<int>> RunsOf(const std::vector<int>& elements);

} // namespace pistaro

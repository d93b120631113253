#include "checks/checked_circuit.h"

#include "layout/placement.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

/// Track gives by so much when it is pressed together.
constexpr float PressedDistance = 2; // cm
constexpr float PressedAngle = static_cast<float>(3 * PiValue / 180);

double Between(WorldPoint a, WorldPoint b) { return std::hypot(double{a.X} - b.X, double{a.Y} - b.Y); }

} // namespace

Closing ClosingOf(const TrackGap& gap) {
    if (IsWithin(gap, ClosedDistance)) return Closing::Closed;
    return IsWithin(gap, PressedDistance, PressedAngle) ? Closing::Pressed : Closing::Open;
}

CheckedCircuit::CheckedCircuit(const Catalogue& catalogue, const Design& design, const Stock& stock, const Units& units,
                               const MoneyMarks& marks)
    : Kinds(catalogue), Owned(stock), Shown(units), Marks(marks), Room(design.Room),
      StatisticsWarnings(DesignWarnings(catalogue, stock, design.Circuit)), circuit_(design.Circuit) {
    std::vector<Ground> grounds;
    for (int index = 0; index < TrackCount; ++index) {
        const auto at = static_cast<std::size_t>(index);
        Tracks[at].Index = index;
        Tracks[at].Track = &design.Circuit.Tracks[at];
        Lay(Tracks[at], grounds);
    }
    Grounds = GroundGrid(std::move(grounds));
}

void CheckedCircuit::Lay(CheckedTrack& track, std::vector<Ground>& grounds) {
    track.FirstGround = grounds.size();
    const BuildCursor end =
        WalkTrack(Kinds, *track.Track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
            if (placement == nullptr) return;
            const CatalogueEntry* const piece =
                Kinds.Find(track.Track->ElementCodes[static_cast<std::size_t>(element)]);
            const Corners& corners = placement->Corners;
            track.Pieces.push_back(
                {piece, element, Between(corners.Entry, corners.OtherEntry), Between(corners.Exit, corners.OtherExit)});
            grounds.push_back(GroundOf(*placement));
            PlaceOf.push_back({track.Index, element});
            pieceOf_.push_back(piece);
        });
    track.Gap = GapBetween(track.Track->Start(), end);
    track.End = ClosingOf(track.Gap);
    track.Lanes = LanesAsBuilt(Kinds, *track.Track);
}

std::string CheckedCircuit::NameOf(PieceAddress place) const {
    const Track& track = circuit_.Tracks[static_cast<std::size_t>(place.Track)];
    return track.ElementCodes[static_cast<std::size_t>(place.Element)] + " (" + std::to_string(place.Element) + ")";
}

const DesignWarning* CheckedCircuit::FindStatisticsWarning(DesignCheck check, int track) const {
    const auto found = std::ranges::find_if(StatisticsWarnings, [&](const DesignWarning& warning) {
        return warning.Check == check && warning.Track == track;
    });
    return found == StatisticsWarnings.end() ? nullptr : &*found;
}

std::vector<std::vector<int>> RunsOf(const std::vector<int>& elements) {
    std::vector<std::vector<int>> runs;
    for (const int element : elements) {
        if (runs.empty() || runs.back().back() + 1 != element) runs.emplace_back();
        runs.back().push_back(element);
    }
    return runs;
}

} // namespace pistaro

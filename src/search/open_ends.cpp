#include "search/open_ends.h"

#include "catalogue/track_geometry.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr double HeadingStep = 2 * PiValue / LatticeHeadings;

/// What a walk along a track knows after each of its elements.
struct Station {
    Pose Cursor;
    std::uint8_t System = 0;
    bool IsAfterAdapter = false;
    bool IsAfterNincoCode = false; ///< as the next adapter sees it
};

/// The track of a system that a piece is entered from.
std::uint8_t EntrySystemOf(const CatalogueEntry& piece, const Station& before) {
    if (!piece.JoinsSystems()) return SystemNumber(piece.System);
    return before.IsAfterNincoCode ? 1 : 0;
}

Station After(const Station& before, const CatalogueEntry& piece) {
    const std::uint8_t entry = EntrySystemOf(piece, before);
    return {ExitOf(piece.Kind, before.Cursor), static_cast<std::uint8_t>(piece.JoinsSystems() ? 1 - entry : entry),
            piece.JoinsSystems(), false};
}

/// Stations 0 to the number of elements: before the first, and after each.
std::vector<Station> StationsOf(const Catalogue& catalogue, const Track& track) {
    std::vector<Station> stations{{.Cursor = track.Start()}};
    for (const std::string& code : track.ElementCodes) {
        Station next = stations.back();
        if (const CatalogueEntry* const piece = catalogue.Find(code)) next = After(stations.back(), *piece);
        next.IsAfterNincoCode = IsOfSystem(code, TrackSystem::Ninco);
        stations.push_back(next);
    }
    return stations;
}

/// The first known piece from an element on; null when there is none.
const CatalogueEntry* NextPiece(const Catalogue& catalogue, const Track& track, std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
        if (const CatalogueEntry* const piece = catalogue.Find(track.ElementCodes[i])) return piece;
    }
    return nullptr;
}

/// Where a stretch must begin that keeps its shape and leads to `end`.
BuildCursor BeginOf(const BuildCursor& from, const BuildCursor& to, const BuildCursor& end) {
    const double turn = double{end.CursorHeading} - to.CursorHeading;
    const double x = double{to.CursorX} - from.CursorX;
    const double y = double{to.CursorY} - from.CursorY;
    return {static_cast<float>(end.CursorX - (x * std::cos(turn) - y * std::sin(turn))),
            static_cast<float>(end.CursorY - (x * std::sin(turn) + y * std::cos(turn))),
            static_cast<float>(from.CursorHeading + turn)};
}

} // namespace

std::optional<OpenEnds> OpenEndsOf(const Catalogue& catalogue, const Track& track, int at, int remove) {
    const std::vector<Station> stations = StationsOf(catalogue, track);
    const auto size = track.ElementCodes.size();
    const auto begin = static_cast<std::size_t>(at);
    const auto end = begin + static_cast<std::size_t>(remove);
    const CatalogueEntry* next = NextPiece(catalogue, track, end, size);
    const Station* nextStation = &stations[end];
    if (next == nullptr) {
        next = NextPiece(catalogue, track, 0, begin);
        nextStation = &stations[0];
    }
    if (next == nullptr) return std::nullopt;
    // Before a track's first element lies its last one, once it is closed.
    const bool isFirst = NextPiece(catalogue, track, 0, begin) == nullptr;
    const Station& before = stations[begin];
    const Station& last = isFirst ? stations[size] : before;

    OpenEnds ends;
    ends.End = before.Cursor;
    ends.Goal = end == size ? track.Start() : BeginOf(stations[end].Cursor, stations[size].Cursor, track.Start());
    ends.EndSystem = last.System;
    ends.AfterAdapter = last.IsAfterAdapter || before.IsAfterNincoCode != (last.System == 1);
    ends.GoalSystem = EntrySystemOf(*next, *nextStation);
    ends.BeforeAdapter = next->JoinsSystems();
    return ends;
}

std::optional<LatticeGoal> GoalOnLattice(const OpenEnds& ends) {
    const double turn = double{ends.Goal.CursorHeading} - ends.End.CursorHeading;
    const double headings = std::round(turn / HeadingStep);
    if (std::fabs(turn - headings * HeadingStep) > 1.5 * ClosedAngle) return std::nullopt;
    const double x = double{ends.Goal.CursorX} - ends.End.CursorX;
    const double y = double{ends.Goal.CursorY} - ends.End.CursorY;
    const Direction along = Towards(ends.End.CursorHeading);
    const int heading = static_cast<int>(std::lround(headings)) % LatticeHeadings;
    return LatticeGoal{x * along.X + y * along.Y, y * along.X - x * along.Y,
                       static_cast<std::uint8_t>((heading + LatticeHeadings) % LatticeHeadings)};
}

} // namespace pistaro

#include "search/open_ends.h"

#include "catalogue/track_geometry.h"
#include "layout/track_gap.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr double HeadingStep = 2 * PiValue / LatticeHeadings;

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

std::uint8_t TrackEnds::EntrySystemOf(const CatalogueEntry& piece, const Station& before) {
    if (!piece.JoinsSystems()) return SystemNumber(piece.System);
    return before.IsAfterNincoCode ? 1 : 0;
}

TrackEnds::Station TrackEnds::After(const Station& before, const CatalogueEntry& piece) {
    const std::uint8_t entry = EntrySystemOf(piece, before);
    const bool joins = piece.JoinsSystems();
    return {ExitOf(piece.Kind, before.Cursor), static_cast<std::uint8_t>(joins ? 1 - entry : entry), joins, false};
}

TrackEnds::TrackEnds(const Catalogue& catalogue, const Track& track) : stations_{Station{.Cursor = track.Start()}} {
    for (const std::string& code : track.ElementCodes) {
        pieces_.push_back(catalogue.Find(code));
        Station next = stations_.back();
        if (pieces_.back() != nullptr) next = After(stations_.back(), *pieces_.back());
        next.IsAfterNincoCode = IsOfSystem(code, TrackSystem::Ninco);
        stations_.push_back(next);
    }
}

std::optional<OpenEnds> TrackEnds::InPlace(int at, int remove) const {
    const auto isPiece = [](const CatalogueEntry* piece) { return piece != nullptr; };
    const auto begin = pieces_.begin() + at;
    const auto end = begin + remove;
    // Behind a track's last element lies its first one, once it is closed, and before its first the last.
    auto next = std::find_if(end, pieces_.end(), isPiece);
    if (next == pieces_.end()) next = std::find_if(pieces_.begin(), begin, isPiece);
    if (next == begin) return std::nullopt;
    const bool isFirst = std::find_if(pieces_.begin(), begin, isPiece) == begin;
    const Station& before = stations_[static_cast<std::size_t>(at)];
    const Station& last = isFirst ? stations_.back() : before;
    const auto nextStation = static_cast<std::size_t>((next < begin ? pieces_.begin() : end) - pieces_.begin());

    OpenEnds ends;
    ends.End = before.Cursor;
    const int after = at + remove;
    ends.Goal = stations_[static_cast<std::size_t>(after)].Cursor;
    ends.EndSystem = last.System;
    ends.AfterAdapter = last.IsAfterAdapter || before.IsAfterNincoCode != (last.System == 1);
    ends.GoalSystem = EntrySystemOf(**next, stations_[nextStation]);
    ends.BeforeAdapter = (*next)->JoinsSystems();
    return ends;
}

std::optional<OpenEnds> TrackEnds::ToClose(int at, int remove) const {
    auto ends = InPlace(at, remove);
    const int after = at + remove;
    const auto end = static_cast<std::size_t>(after);
    const BuildCursor& start = stations_.front().Cursor;
    if (ends)
        ends->Goal = end == pieces_.size() ? start : BeginOf(stations_[end].Cursor, stations_.back().Cursor, start);
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

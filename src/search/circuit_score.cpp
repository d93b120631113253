#include "search/circuit_score.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

double UpTo1(double value) { return std::clamp(value, 0.0, 1.0); }

/// Along the middle of the track, cm.
double LengthOf(const PieceKind& kind) {
    return kind.Shape == PieceShape::Straight ? kind.Length : kind.Turn * (kind.InnerRadius + kind.OuterRadius) / 2;
}

double LengthOf(const Catalogue& catalogue, const PieceBox& box) {
    double length = 0;
    for (const int row : catalogue.HeadRows())
        length += box.Counts[static_cast<std::size_t>(row)] * LengthOf(catalogue[row].Kind);
    return length;
}

} // namespace

Stretches StretchesOf(const Catalogue& catalogue, Rows rows) {
    const auto shape = [&](int row) { return catalogue[row].Kind.Shape; };
    const auto change = std::ranges::adjacent_find(rows, [&](int a, int b) { return shape(a) != shape(b); });
    if (change != rows.end()) std::rotate(rows.begin(), change + 1, rows.end());
    Stretches stretches;
    std::vector<PieceShape> sides;
    for (auto first = rows.begin(); first != rows.end();) {
        const auto end = std::find_if(first, rows.end(), [&](int row) { return shape(row) != shape(*first); });
        if (catalogue[*first].IsStraight()) {
            double length = 0;
            for (auto row = first; row != end; ++row)
                length += catalogue[*row].Kind.Length;
            stretches.LongestStraight = std::max(stretches.LongestStraight, length);
        } else {
            std::vector<int> corner;
            for (auto row = first; row != end; ++row)
                corner.push_back(catalogue[*row].StockIndex);
            sides.push_back(shape(*first));
            ++(sides.back() == PieceShape::LeftCurve ? stretches.LeftCorners : stretches.RightCorners);
            stretches.Corners.insert(std::min(corner, {corner.rbegin(), corner.rend()}));
        }
        first = end;
    }
    for (std::size_t corner = 0; corner < sides.size(); ++corner)
        stretches.SideChanges += sides[corner] != sides[(corner + 1) % sides.size()] ? 1 : 0;
    return stretches;
}

double Score(const ScoreParts& parts, const ScoreWeights& weights) {
    const double sum = weights.Used * parts.Used + weights.Lanes * parts.Lanes + weights.Straights * parts.Straights +
                       weights.Corners * parts.Corners + weights.Directions * parts.Directions +
                       weights.Start * parts.Start + weights.Walls * parts.Walls + weights.Length * parts.Length +
                       weights.Speed * parts.Speed + weights.Winding * parts.Winding +
                       weights.Likeness * parts.Likeness;
    const double whole = weights.Used + weights.Lanes + weights.Straights + weights.Corners + weights.Directions +
                         weights.Start + weights.Walls + weights.Length + weights.Speed + weights.Winding +
                         weights.Likeness;
    return whole > 0 ? sum / whole : 0;
}

ScoreParts ScorePartsOf(const Catalogue& catalogue, const Rows& rows, const LaidLoop& laid, const LoopRoom& room,
                        const PieceBox& box, double lap, double laneDifference) {
    constexpr double worthDriving = 100; // cm
    constexpr double mostOfLap = 0.4;
    constexpr double worstLanes = 0.1;
    constexpr double manyCorners = 5;
    constexpr double clearance = 10; // cm
    constexpr double manyBends = 12;
    const Stretches stretches = StretchesOf(catalogue, rows);
    double left = 0, right = 0, driven = 0;
    for (const int row : rows) {
        const PieceKind& kind = catalogue[row].Kind;
        driven += LengthOf(kind);
        if (kind.Shape == PieceShape::LeftCurve) left += kind.Turn;
        if (kind.Shape == PieceShape::RightCurve) right += kind.Turn;
    }
    const double longest = stretches.LongestStraight;
    const double bends = stretches.LeftCorners + stretches.RightCorners + stretches.SideChanges;
    return {.Used = static_cast<double>(rows.size()) / box.Total(),
            .Lanes = UpTo1(1 - std::abs(laneDifference) / lap / worstLanes),
            .Straights = longest > mostOfLap * lap ? mostOfLap * lap / longest : UpTo1(longest / worthDriving),
            .Corners = UpTo1(static_cast<double>(stretches.Corners.size()) / manyCorners),
            .Directions = UpTo1(std::min(left, right) / PiValue),
            .Start = catalogue[rows.front()].IsStraight() ? 1.0 : 0.0,
            .Walls = UpTo1(room.DistanceToWalls(laid) / clearance),
            .Length = UpTo1(driven / LengthOf(catalogue, box)),
            .Speed = UpTo1(longest / (mostOfLap * lap)),
            .Winding = bends / (bends + manyBends)};
}

} // namespace pistaro

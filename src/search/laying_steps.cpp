#include "search/laying_steps.h"

#include "layout/exit.h"

#include <cmath>

namespace pistaro {

namespace {

/// By how many headings a piece turns, to the left above 0; nothing where it leads off the lattice.
std::optional<int> TurnOf(const PieceKind& kind) {
    const double side = kind.Shape == PieceShape::RightCurve ? -1 : 1;
    const double headings = side * kind.Turn / AngleOf(1);
    const double whole = std::round(headings);
    constexpr double asGoodAsWhole = 1e-6;
    if (std::abs(headings - whole) > asGoodAsWhole) return std::nullopt;
    return static_cast<int>(whole);
}

/// The exit of a piece laid at the origin with heading 0, in double precision.
GroundPoint ExitPoint(const PieceKind& kind) {
    if (kind.Shape == PieceShape::Straight) return {0, kind.Length};
    const CurveFrame frame = CurveFrameOf(kind, Pose());
    const Direction across = Towards(frame.Side * kind.Turn);
    return {frame.CentreX + frame.Side * frame.ReferenceRadius * across.X,
            frame.CentreY + frame.Side * frame.ReferenceRadius * across.Y};
}

} // namespace

SearchPose NearestPose(const BuildCursor& cursor) {
    const auto headings = static_cast<int>(std::lround(cursor.CursorHeading / AngleOf(1)) % HeadingCount);
    return {cursor.CursorX, cursor.CursorY, (headings + HeadingCount) % HeadingCount};
}

std::vector<LayingStep> StepsOf(const Catalogue& catalogue, const ShapeCounts& shapes) {
    std::vector<LayingStep> steps;
    for (int row = 0; row < catalogue.Count(); ++row) {
        const CatalogueEntry& piece = catalogue[row];
        if (!piece.IsBasic() || shapes[static_cast<std::size_t>(piece.StockIndex)] == 0) continue;
        const auto turn = TurnOf(piece.Kind);
        if (!turn) continue;
        LayingStep step{.Row = row,
                        .Shape = piece.StockIndex,
                        .Entry = piece.System,
                        .Exit = piece.System,
                        .Turn = *turn,
                        .Move = {},
                        .IsStraight = piece.IsStraight()};
        for (int heading = 0; heading < HeadingCount; ++heading)
            step.Move[static_cast<std::size_t>(heading)] = Turned(ExitPoint(piece.Kind), heading);
        if (piece.JoinsSystems()) {
            step.Entry = TrackSystem::Scalextric;
            step.Exit = TrackSystem::Ninco;
            steps.push_back(step);
            std::swap(step.Entry, step.Exit);
        }
        steps.push_back(step);
    }
    return steps;
}

std::optional<LayingStep> KeptStep(const Catalogue& catalogue, const std::vector<int>& rows, int shape) {
    const CatalogueEntry& first = catalogue[rows.front()];
    const CatalogueEntry& last = catalogue[rows.back()];
    if (first.System != last.System || first.JoinsSystems() || last.JoinsSystems()) return std::nullopt;
    LayingStep step{.Row = rows.front(), .Shape = shape, .Entry = first.System, .Exit = first.System, .Kept = rows};
    SearchPose pose;
    for (const int row : rows) {
        const auto turn = TurnOf(catalogue[row].Kind);
        if (!turn) return std::nullopt;
        const GroundPoint exit = ExitPoint(catalogue[row].Kind);
        pose = Beyond(pose, {exit.X, exit.Y, (*turn + HeadingCount) % HeadingCount});
        step.Turn += *turn;
    }
    for (int heading = 0; heading < HeadingCount; ++heading)
        step.Move[static_cast<std::size_t>(heading)] = Turned({pose.X, pose.Y}, heading);
    return step;
}

} // namespace pistaro

#include "search/piece_shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace pistaro {

namespace {

constexpr double Unit = 1.0 / 160; ///< cm: every length and radius is a whole number of them, but for the fifth decimal
constexpr double UnitTolerance = 1e-5;

/// A root of unity's coefficient: the 16 first roots, of which the others are the negatives.
constexpr std::size_t Coefficients = LatticeHeadings / 2;

constexpr std::array<std::uint64_t, Coefficients> MakeWeights() {
    std::array<std::uint64_t, Coefficients> weights{};
    std::uint64_t state = 0x9E3779B97F4A7C15;
    for (std::uint64_t& weight : weights) {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        weight = state | 1;
    }
    return weights;
}
constexpr std::array<std::uint64_t, Coefficients> Weights = MakeWeights();

/// Adds `length` along a heading to a step entered with another one.
void AddAlong(LatticeStep& step, int entryHeading, int heading, double length) {
    const auto at = static_cast<std::size_t>(entryHeading);
    const int root = ((heading % LatticeHeadings) + LatticeHeadings) % LatticeHeadings;
    const double angle = root * 2 * std::numbers::pi / LatticeHeadings;
    step.X[at] += length * std::cos(angle);
    step.Y[at] += length * std::sin(angle);
    const auto units = static_cast<std::uint64_t>(std::llround(length / Unit));
    const auto coefficient = static_cast<std::size_t>(root) % Coefficients;
    const bool isNegative = static_cast<std::size_t>(root) >= Coefficients;
    step.Key[at] += Weights[coefficient] * (isNegative ? 0 - units : units);
}

bool IsWhole(double length) { return std::fabs(length - std::round(length / Unit) * Unit) < UnitTolerance; }

double TurnInHeadings(const PieceKind& kind) { return kind.Turn * LatticeHeadings / (2 * std::numbers::pi); }

bool IsOnLattice(const PieceKind& kind) {
    if (kind.Shape == PieceShape::Straight) return IsWhole(kind.Length);
    const double turn = TurnInHeadings(kind);
    return IsWhole(kind.InnerRadius) && IsWhole(kind.OuterRadius) && std::fabs(turn - std::round(turn)) < 1e-4;
}

LatticeStep StepOf(const PieceKind& kind) {
    LatticeStep step;
    const int quarter = LatticeHeadings / 4;
    const int turn = static_cast<int>(std::lround(TurnInHeadings(kind)));
    for (int heading = 0; heading < LatticeHeadings; ++heading) {
        switch (kind.Shape) {
        case PieceShape::Straight:
            AddAlong(step, heading, heading + quarter, kind.Length);
            break;
        case PieceShape::LeftCurve:
            AddAlong(step, heading, heading, -kind.InnerRadius);
            AddAlong(step, heading, heading + turn, kind.InnerRadius);
            break;
        case PieceShape::RightCurve:
            AddAlong(step, heading, heading, kind.OuterRadius);
            AddAlong(step, heading, heading - turn, -kind.OuterRadius);
            break;
        }
    }
    if (kind.Shape == PieceShape::LeftCurve) step.Turn = turn;
    if (kind.Shape == PieceShape::RightCurve) step.Turn = LatticeHeadings - turn;
    return step;
}

/// Whether two shapes lie on one line: neighbours of which then change places without moving anything else.
bool ShareLine(const PieceKind& a, const PieceKind& b) {
    return a.Shape == b.Shape && a.Width == b.Width && a.InnerRadius == b.InnerRadius && a.OuterRadius == b.OuterRadius;
}

bool CoverSameGround(const PieceKind& a, const PieceKind& b) {
    return ShareLine(a, b) && a.Length == b.Length && a.Turn == b.Turn;
}

} // namespace

PieceShapes::PieceShapes(const Catalogue& catalogue) {
    for (int row = 0; row < catalogue.Count(); ++row) {
        const CatalogueEntry& piece = catalogue[row];
        if (piece.IsChicane() || piece.IsChicaneExtension() || piece.LaneChange || !IsOnLattice(piece.Kind)) continue;
        const std::uint8_t system = SystemNumber(piece.System);
        if (piece.JoinsSystems()) {
            Add(piece, row, 0, 1);
            Add(piece, row, 1, 0);
        } else {
            Add(piece, row, system, system);
        }
    }
}

void PieceShapes::Add(const CatalogueEntry& piece, int row, std::uint8_t entrySystem, std::uint8_t exitSystem) {
    const bool isAdapter = piece.JoinsSystems();
    const auto same = std::ranges::find_if(shapes_, [&](const LaidShape& shape) {
        return shape.EntrySystem == entrySystem && shape.ExitSystem == exitSystem && shape.IsAdapter == isAdapter &&
               CoverSameGround(shape.Kind, piece.Kind);
    });
    if (same != shapes_.end()) {
        same->Rows.push_back(row);
        return;
    }
    if (Count() == MostShapes) throw std::logic_error("the catalogue has more shapes than a search can tell apart");
    // An adapter stands where it stands: it has a line of its own.
    const auto line = isAdapter ? lines_.end() : std::ranges::find_if(lines_, [&](const PieceKind& kind) {
        return kind.Marks != PieceMarks::Adapter && ShareLine(kind, piece.Kind);
    });
    shapes_.push_back({.Rows = {row},
                       .Piece = &piece,
                       .Kind = piece.Kind,
                       .EntrySystem = entrySystem,
                       .ExitSystem = exitSystem,
                       .IsAdapter = isAdapter,
                       .Line = static_cast<int>(line - lines_.begin()),
                       .Step = StepOf(piece.Kind)});
    if (line == lines_.end()) lines_.push_back(piece.Kind);
}

LatticePose PieceShapes::After(const LatticePose& pose, int shape) const {
    const LaidShape& laid = (*this)[shape];
    const std::size_t at = pose.Heading;
    return {pose.X + laid.Step.X[at], pose.Y + laid.Step.Y[at], pose.Key + laid.Step.Key[at],
            static_cast<std::uint8_t>((pose.Heading + laid.Step.Turn) % LatticeHeadings), laid.ExitSystem};
}

LatticePose PieceShapes::Before(const LatticePose& pose, int shape) const {
    const LaidShape& laid = (*this)[shape];
    const int heading = (pose.Heading + LatticeHeadings - laid.Step.Turn) % LatticeHeadings;
    const auto at = static_cast<std::size_t>(heading);
    return {pose.X - laid.Step.X[at], pose.Y - laid.Step.Y[at], pose.Key - laid.Step.Key[at],
            static_cast<std::uint8_t>(heading), laid.EntrySystem};
}

bool PieceShapes::MayFollow(int shape, int next) const {
    const LaidShape& first = (*this)[shape];
    const LaidShape& second = (*this)[next];
    return first.ExitSystem == second.EntrySystem && !(first.IsAdapter && second.IsAdapter);
}

} // namespace pistaro

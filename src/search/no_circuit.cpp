#include "search/no_circuit.h"

#include "catalogue/track_geometry.h"
#include "search/loop.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pistaro {

namespace {

/// Calls `visit` with each product in the box and how many there are.
template <typename Visit>
void ForEachProduct(const Catalogue& catalogue, const PieceBox& box, Visit visit) {
    for (const int row : catalogue.HeadRows()) {
        const int count = box.Counts[static_cast<std::size_t>(row)];
        if (count > 0) visit(catalogue[row], count);
    }
}

/// By how many degrees the box's curves turn at most in one circuit: those of one system, unless two adapters join
/// both.
double DegreesOf(const Catalogue& catalogue, const PieceBox& box) {
    double scalextric = 0, ninco = 0;
    int adapters = 0;
    ForEachProduct(catalogue, box, [&](const CatalogueEntry& piece, int count) {
        if (piece.JoinsSystems()) adapters += count;
        constexpr double halfTurn = 180;
        (piece.System == TrackSystem::Ninco ? ninco : scalextric) += count * piece.Kind.Turn / PiValue * halfTurn;
    });
    return adapters >= 2 ? scalextric + ninco : std::max(scalextric, ninco);
}

/// The curve that makes the smallest circle; null where there is none.
const CatalogueEntry* TightestOf(const Catalogue& catalogue, const PieceBox& box) {
    const CatalogueEntry* tightest = nullptr;
    ForEachProduct(catalogue, box, [&](const CatalogueEntry& piece, int) {
        if (piece.IsStraight()) return;
        if (tightest == nullptr || piece.Kind.OuterRadius < tightest->Kind.OuterRadius) tightest = &piece;
    });
    return tightest;
}

std::string WholeUp(double value) { return std::to_string(std::lround(std::ceil(value))); }

/// The box with at least the pieces that are kept.
PieceBox WithKept(const Catalogue& catalogue, const LayingTask& task) {
    PieceBox box = task.Box;
    if (!task.Kept) return box;
    std::vector<int> kept(box.Counts.size());
    for (const int row : task.Kept->Rows)
        ++kept[static_cast<std::size_t>(catalogue[row].StockIndex)];
    for (std::size_t row = 0; row < kept.size(); ++row)
        box.Counts[row] = std::max(box.Counts[row], kept[row]);
    return box;
}

bool LiesOutside(const Catalogue& catalogue, const LayingTask& task) {
    const LoopRoom room(task.Room, LoopRoom::UsersTouch);
    return !room.Holds(LayLoop(catalogue, task.Kept->Rows, task.Kept->At));
}

} // namespace

std::string WhyNoCircuit(const Catalogue& catalogue, const LayingTask& task) {
    constexpr double wholeTurn = 360, rounding = 0.1; // degrees
    const PieceBox box = WithKept(catalogue, task);
    const double degrees = DegreesOf(catalogue, box);
    const CatalogueEntry* const tightest = TightestOf(catalogue, box);
    if (tightest == nullptr) return "There are no curves in the box.";
    if (degrees < wholeTurn - rounding)
        return "The curves of the box turn by " + std::to_string(std::lround(degrees)) +
               "° in all, and a circuit turns by 360°.";
    if (task.Kept) return LiesOutside(catalogue, task) ? "The part that is kept does not lie inside the room." : "";
    // Whatever its course, a circuit that does not cross itself runs around a circle of its tightest curve.
    const LoopRoom room(task.Room);
    const double depth = std::min(room.Width(), room.Height());
    const double circle = 2 * tightest->Kind.OuterRadius;
    if (circle > depth)
        return "The smallest circle of the box, of " + std::string(ProductCode(tightest->Code)) + ", takes " +
               WholeUp(circle) + " cm, and the room is " + std::to_string(std::lround(depth)) + " cm deep.";
    return "";
}

} // namespace pistaro

#include "search/no_circuit.h"

#include "search/loop.h"
#include "search/systems.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pistaro {

namespace {

/// The curve that makes the smallest circle; null where there is none.
const CatalogueEntry* TightestOf(const Catalogue& catalogue, const PieceBox& box) {
    const CatalogueEntry* tightest = nullptr;
    for (const int row : catalogue.HeadRows()) {
        const CatalogueEntry& piece = catalogue[row];
        if (piece.IsStraight() || box.Counts[static_cast<std::size_t>(row)] == 0) continue;
        if (tightest == nullptr || piece.Kind.OuterRadius < tightest->Kind.OuterRadius) tightest = &piece;
    }
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

std::string WhyNotKept(const Catalogue& catalogue, const LayingTask& task) {
    const LaidLoop laid = LayLoop(catalogue, task.Kept->Rows, task.Kept->At);
    if (!LoopRoom(task.Room, LoopRoom::UsersTouch).Holds(laid))
        return "The part that is kept does not lie inside the room.";
    if (!LoopRoom(task.Room, LoopRoom::UsersTouch - task.FromWalls).Holds(laid))
        return "The part that is kept lies nearer to a wall than " + std::to_string(task.FromWalls) + " cm.";
    if (!LoopRoom(task.Room, LoopRoom::UsersTouch - task.FromWalls, task.Taken).Holds(laid))
        return "The part that is kept overlaps another track.";
    return "";
}

} // namespace

std::string WhyNoCircuit(const Catalogue& catalogue, const LayingTask& task) {
    const PieceBox box = WithKept(catalogue, task);
    const Systems systems = SystemsOf(catalogue, box);
    const CatalogueEntry* const tightest = TightestOf(catalogue, box);
    if (tightest == nullptr) return "There are no curves in the box.";
    if (!TurnWhole(systems.Degrees()))
        return std::string("The curves of ") + (systems.AreApart() ? "one system" : "the box") + " turn by " +
               std::to_string(std::lround(systems.Degrees())) + "° in all, and a circuit turns by 360°.";
    if (task.Kept) return WhyNotKept(catalogue, task);
    // Whatever its course, a circuit that does not cross itself runs around a circle of its tightest curve.
    const LoopRoom room(task.Room, -task.FromWalls);
    const double depth = std::min(room.Width(), room.Height());
    const double circle = 2 * tightest->Kind.OuterRadius;
    if (circle > depth)
        return "The smallest circle of the box, of " + std::string(ProductCode(tightest->Code)) + ", takes " +
               WholeUp(circle) + " cm, and the room is " + std::to_string(std::lround(depth)) + " cm deep" +
               (task.FromWalls > 0 ? " between what is kept from the walls." : ".");
    return "";
}

std::string WhySystemsStayApart(const Catalogue& catalogue, const PieceBox& box) {
    const Systems systems = SystemsOf(catalogue, box);
    if (!systems.AreApart()) return "";
    const std::string need = "Scalextric and Ninco join by N10110 only, and a circuit of both takes two: ";
    return need + (systems.Adapters == 0 ? "without them" : "with one") + " circuits are of one system.";
}

} // namespace pistaro

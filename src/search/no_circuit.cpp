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

/// How many adapters a circuit of both systems takes: as often as it leads into the other one it leads back.
constexpr int FewestAdapters = 2;

struct Systems {
    int Scalextric = 0, Ninco = 0; ///< pieces of each
    int Adapters = 0;
    double ScalextricDegrees = 0, NincoDegrees = 0; ///< by which each one's curves turn

    bool CanJoin() const { return Adapters >= FewestAdapters; }
    bool AreApart() const { return Scalextric > 0 && Ninco > 0 && !CanJoin(); }

    /// By how many degrees curves turn at most in one circuit.
    double Degrees() const {
        return CanJoin() ? ScalextricDegrees + NincoDegrees : std::max(ScalextricDegrees, NincoDegrees);
    }
};

Systems SystemsOf(const Catalogue& catalogue, const PieceBox& box) {
    Systems systems;
    ForEachProduct(catalogue, box, [&](const CatalogueEntry& piece, int count) {
        constexpr double halfTurn = 180;
        const bool isNinco = piece.System == TrackSystem::Ninco;
        (isNinco ? systems.NincoDegrees : systems.ScalextricDegrees) += count * piece.Kind.Turn / PiValue * halfTurn;
        (piece.JoinsSystems() ? systems.Adapters : isNinco ? systems.Ninco : systems.Scalextric) += count;
    });
    return systems;
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
    constexpr double wholeTurn = 360, rounding = 0.1; // degrees
    const PieceBox box = WithKept(catalogue, task);
    const Systems systems = SystemsOf(catalogue, box);
    const CatalogueEntry* const tightest = TightestOf(catalogue, box);
    if (tightest == nullptr) return "There are no curves in the box.";
    if (systems.Degrees() < wholeTurn - rounding)
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

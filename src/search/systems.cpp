#include "search/systems.h"

#include "catalogue/track_geometry.h"

#include <algorithm>

namespace pistaro {

bool Systems::CanJoin() const {
    constexpr int fewest = 2; // as often as a circuit leads into the other system it leads back
    return Adapters >= fewest;
}

double Systems::Degrees() const {
    return CanJoin() ? ScalextricDegrees + NincoDegrees : std::max(ScalextricDegrees, NincoDegrees);
}

double Systems::DegreesOf(TrackSystem system) const {
    return system == TrackSystem::Ninco ? NincoDegrees : ScalextricDegrees;
}

bool Systems::LeaveOut(TrackSystem system) const {
    return !CanJoin() && TurnWhole(Degrees()) && !TurnWhole(DegreesOf(system));
}

Systems SystemsOf(const Catalogue& catalogue, const PieceBox& box) {
    Systems systems;
    for (const int row : catalogue.HeadRows()) {
        constexpr double halfTurn = 180;
        const CatalogueEntry& piece = catalogue[row];
        const int count = box.Counts[static_cast<std::size_t>(row)];
        const bool isNinco = piece.System == TrackSystem::Ninco;
        (isNinco ? systems.NincoDegrees : systems.ScalextricDegrees) += count * piece.Kind.Turn / PiValue * halfTurn;
        (piece.JoinsSystems() ? systems.Adapters : isNinco ? systems.Ninco : systems.Scalextric) += count;
    }
    return systems;
}

bool TurnWhole(double degrees) {
    constexpr double wholeTurn = 360, rounding = 0.1;
    return degrees >= wholeTurn - rounding;
}

} // namespace pistaro

// What a box holds of either system, and which of them its circuits can have.
#pragma once

#include "search/piece_box.h"

namespace pistaro {

struct Systems {
    int Scalextric = 0, Ninco = 0; ///< pieces of each
    int Adapters = 0;
    double ScalextricDegrees = 0, NincoDegrees = 0; ///< by which each one's curves turn

    bool CanJoin() const;
    bool AreApart() const { return Scalextric > 0 && Ninco > 0 && !CanJoin(); }

    /// By how many degrees curves turn at most in one circuit.
    double Degrees() const;
    double DegreesOf(TrackSystem system) const;

    /// Whether the box makes circuits, but none that a piece of this system could stand in.
    bool LeaveOut(TrackSystem system) const;
};

Systems SystemsOf(const Catalogue& catalogue, const PieceBox& box);

/// Whether curves that turn by so many degrees may make a circuit.
bool TurnWhole(double degrees);

} // namespace pistaro

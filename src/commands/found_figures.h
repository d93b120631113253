// What is told of circuits that were found in a box: a few words on a card, and their figures at length.
#pragma once

#include "commands/session.h"
#include "search/laying.h"

#include <string>
#include <vector>

namespace pistaro {

/// What the circuit's pieces cost that are not owned.
Cents PriceOfMissing(const Session& session, const Track& track);

/// "96 % of the box, 12.34 m": how much a found circuit uses, and how long a lap is.
std::string UseAndLengthText(const LaidCircuit& circuit);

/// "24 pieces, 0.00 €": what would have to be bought; the pieces alone until somebody has told what he owns,
/// and "3 to buy" where no price is known.
std::string PiecesAndPriceText(const Session& session, const LaidCircuit& circuit);

/// The elements of a circuit that are not as in the track that it varies.
std::vector<int> ElementsUnlike(const Catalogue& catalogue, const Track& circuit, const Track& varied);

/// "box of C277 in a wall": where what is printed beside a piece does not lie inside the room; else empty.
std::string WallWarning(const Session& session, const Design& room, const LaidCircuit& circuit);

/// One of the figures that are told of a found circuit at length.
struct CircuitFigure {
    std::string Name, Value;

    bool operator==(const CircuitFigure&) const = default;
};
std::vector<CircuitFigure> FiguresOf(const Session& session, const PieceBox& box, const Design& room,
                                     const LaidCircuit& circuit);

} // namespace pistaro

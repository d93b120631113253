// The build plan: in which steps a circuit is laid, and what one needs for it.
#pragma once

#include "paper/circuit_drawing.h"

#include <string>
#include <vector>

namespace pistaro {

inline constexpr int PiecesOfAStep = 10; ///< at most

/// Neighbouring pieces of one track.
struct BuildStep {
    int First = 0, Last = 0; ///< places in the plan's drawing
};

struct NeededPieces {
    std::string Code; ///< the product's
    std::string Name;
    int Count = 0;
    int Lacking = 0; ///< of them more than are owned
};

/// A piece as a step's list has it: "0", "C160", "standard straight".
struct StepLine {
    std::string Number, Code, Name;

    bool operator==(const StepLine&) const = default;
};

struct BuildPlan {
    CircuitDrawing Drawing; ///< its pieces are in the order of laying
    std::vector<NeededPieces> Needed;
    std::vector<BuildStep> Steps;
    bool StockIsKnown = false; ///< some piece, be it another one, is owned
    std::string LeftOut;       ///< which elements are in no step, since their codes are unknown; empty without such

    const DrawnPiece& Piece(int at) const { return Drawing.Pieces[static_cast<std::size_t>(at)]; }

    /// "Track 1, pieces 0 to 9"
    std::string TitleOf(const BuildStep& step) const;
    /// The pieces of a step, a line each.
    std::vector<StepLine> LinesOf(const Catalogue& catalogue, const BuildStep& step) const;
    /// How the numbers of pieces are to be read, for people who count from 1.
    static constexpr const char* OnNumbers =
        "Pieces bear the numbers that the drawing shows: each track begins with 0.";
    /// "You lack 5 of these pieces: 3 × C151, 2 × C160"; empty where nobody told what is owned.
    std::string LackText() const;
    /// What stands at the plan's head, a line each: how many pieces in how many steps, how large the circuit and its
    /// room are in the user's units, what its user lacks, what is left out.
    std::vector<std::string> Facts() const;
};

/// Of one track (0..2) or AllTracks. Pieces of unknown codes are left out; they lie nowhere.
BuildPlan BuildPlanOf(const Catalogue& catalogue, const Project& project, int track);

/// The plan as a page for a web browser, UTF-8, its pictures within it: in each, what is laid before in grey, the new
/// pieces in colour with their numbers, what comes later not at all; and beside it where on the circuit that is.
std::string BuildPlanPage(const Catalogue& catalogue, const BuildPlan& plan);

} // namespace pistaro

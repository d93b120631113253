// The fewest changes that make both lanes of a track equally long.
#pragma once

#include "checks/finding.h"
#include "model/project.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace pistaro {

/// Lanes that differ by no more are balanced, cm.
inline constexpr double BalancedWithin = 1;

/// Other pieces in place of as many that lie side by side.
struct BalanceStep {
    int First = 0; ///< the first element that is changed
    std::vector<std::string> Codes;
    std::string Text;                ///< what is done
    std::array<double, 2> Lengths{}; ///< of the lanes as built after this step and those before it, cm
    bool Joined = false;             ///< then each lane leads into the other
};

struct Balance {
    double Before = 0;              ///< by how much the lanes differ, cm
    bool Joined = false;            ///< each of them leads into the other
    bool IsBalanced = false;        ///< the track needs no change
    bool IsOpen = false;            ///< its ends do not meet, nor can they be pressed together
    bool LacksStraights = false;    ///< it has none of a change-over's length, nor a change-over
    std::vector<BalanceStep> Steps; ///< none when it needs none, or when no few changes help

    /// By how much the lanes differ after the best of all changes that were looked at, cm; none where nothing can be
    /// changed.
    std::optional<double> Nearest = {};

    /// Other proposals, of as many steps at other places: at most two.
    std::vector<std::vector<BalanceStep>> Others = {};
};

/// A straight that another one of its length may take the place of.
bool IsPlainStraight(const CatalogueEntry& piece);

/// Looks for at most three steps: a change-over in place of a plain straight of its length or the reverse, a run of
/// curves turned round that ends where it ended, two bends that lie opposite ways exchanged. The track stays closed as
/// it was, and no error is found in the circuit that was none before. The fewest steps, of these the ones after which
/// the lanes differ least; among equals those that put change-overs neither beside each other nor at the start.
Balance BalanceLanes(const Catalogue& catalogue, const Design& design, int track);

/// "The lanes differ by 12.5 cm", or "Each lane leads into the other": the track as it is.
std::string DifferenceText(const Balance& balance, const Units& units);

/// "C8006 in place of C160 (0): the lanes then differ by 0.0 cm"
std::string StepText(const BalanceStep& step, const Units& units);

/// What it proposes as a sentence, with a line for each step and its effect; where there is nothing to propose, why:
/// the track is open, or how near the lanes come at best.
std::string BalanceText(const Balance& balance, const Units& units);

/// The track with all steps done.
Track Balanced(const Track& track, const std::vector<BalanceStep>& steps);

} // namespace pistaro

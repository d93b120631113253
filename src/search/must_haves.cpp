#include "search/must_haves.h"

#include "search/systems.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace pistaro {

namespace {

struct MustHave {
    bool MustHaves::*Is;
    bool (*Counts)(const CatalogueEntry&);
    int Fewest; ///< of the pieces that count
    const char* Lacking;
    const char* Held;
};

constexpr std::array<MustHave, 4> All{{
    {&MustHaves::LapCounter, [](const CatalogueEntry& piece) { return piece.Kind.Marks == PieceMarks::LapCounter; }, 1,
     "no lap counter", "lap counter is"},
    {&MustHaves::BankedCurve, [](const CatalogueEntry& piece) { return piece.Banked; }, 1, "no banked curve",
     "banked curve is"},
    {&MustHaves::ChangeOvers, [](const CatalogueEntry& piece) { return piece.LaneChange; }, 2,
     "no pair of change-overs", "change-overs are"},
    {&MustHaves::Chicane, [](const CatalogueEntry& piece) { return piece.IsChicane(); }, 2, "no two ends of a chicane",
     "chicane is"},
}};

bool IsAmong(const MustHave& one, const Catalogue& catalogue, const std::vector<int>& rows) {
    return std::ranges::count_if(rows, [&](int row) { return one.Counts(catalogue[row]); }) >= one.Fewest;
}

/// Calls `visit` with each product of which the box has enough for it: pairs are of one product.
template <typename Visit>
void ForEachThatGives(const MustHave& one, const Catalogue& catalogue, const PieceBox& box, Visit visit) {
    for (const int row : catalogue.HeadRows()) {
        const bool isEnough = box.Counts[static_cast<std::size_t>(row)] >= one.Fewest;
        if (isEnough && one.Counts(catalogue[row])) visit(catalogue[row]);
    }
}

const char* NameOf(TrackSystem system) { return system == TrackSystem::Ninco ? "Ninco" : "Scalextric"; }

bool IsHeld(const MustHave& one, const Catalogue& catalogue, const PieceBox& box) {
    bool isHeld = false;
    ForEachThatGives(one, catalogue, box, [&](const CatalogueEntry&) { isHeld = true; });
    return isHeld;
}

/// Why no circuit has it though the box holds it: it is of the system whose pieces come in none.
std::string WhyLeftOut(const MustHave& one, const Catalogue& catalogue, const PieceBox& box) {
    const Systems systems = SystemsOf(catalogue, box);
    std::optional<TrackSystem> leftOut;
    bool isTaken = false;
    ForEachThatGives(one, catalogue, box, [&](const CatalogueEntry& piece) {
        if (systems.LeaveOut(piece.System))
            leftOut = piece.System;
        else
            isTaken = true;
    });
    if (isTaken || !leftOut) return "";
    const std::string name = NameOf(*leftOut);
    return std::string("The ") + one.Held + " " + name + ". The box's " + name + " curves turn by " +
           std::to_string(std::lround(systems.DegreesOf(*leftOut))) +
           "° in all, and a circuit turns by 360°; one of both systems takes two N10110.";
}

bool IsGivenBy(TrackSystem system, const MustHave& one, const Catalogue& catalogue, const PieceBox& box) {
    bool isGiven = false;
    ForEachThatGives(one, catalogue, box, [&](const CatalogueEntry& piece) { isGiven |= piece.System == system; });
    return isGiven;
}

/// Why no circuit has all of them though each comes in some: one system gives the one and the other the other, and
/// circuits are of one system.
std::string WhyNotTogether(const Catalogue& catalogue, const PieceBox& box, const MustHaves& mustHave) {
    if (!SystemsOf(catalogue, box).AreApart()) return "";
    std::string held;
    for (const TrackSystem lacking : {TrackSystem::Ninco, TrackSystem::Scalextric}) {
        const auto isLacking = [&](const MustHave& one) {
            return mustHave.*one.Is && !IsGivenBy(lacking, one, catalogue, box);
        };
        const auto* const one = std::ranges::find_if(All, isLacking);
        if (one == All.end()) return "";
        const TrackSystem given = lacking == TrackSystem::Ninco ? TrackSystem::Scalextric : TrackSystem::Ninco;
        held += (held.empty() ? "The " : ", the ") + std::string(one->Held) + " " + NameOf(given);
    }
    return held + ". A circuit of both systems takes two N10110.";
}

} // namespace

bool HasAll(const Catalogue& catalogue, const std::vector<int>& rows, const MustHaves& mustHave) {
    return std::ranges::all_of(
        All, [&](const MustHave& one) { return !(mustHave.*one.Is) || IsAmong(one, catalogue, rows); });
}

MustHaves MustHavesOf(const Catalogue& catalogue, const std::vector<int>& rows) {
    MustHaves its;
    for (const MustHave& one : All)
        its.*one.Is = IsAmong(one, catalogue, rows);
    return its;
}

bool HoldsAll(const Catalogue& catalogue, const PieceBox& box, const MustHaves& mustHave) {
    return std::ranges::all_of(All,
                               [&](const MustHave& one) { return !(mustHave.*one.Is) || IsHeld(one, catalogue, box); });
}

std::string WhyNot(const Catalogue& catalogue, const PieceBox& box, const MustHaves& mustHave) {
    for (const MustHave& one : All) {
        if (!(mustHave.*one.Is)) continue;
        if (!IsHeld(one, catalogue, box)) return std::string("The box holds ") + one.Lacking + ".";
        std::string why = WhyLeftOut(one, catalogue, box);
        if (!why.empty()) return why;
    }
    return WhyNotTogether(catalogue, box, mustHave);
}

std::string WhyRare(const Catalogue& catalogue, const PieceBox& box, const MustHaves& mustHave) {
    if (!mustHave.LapCounter) return "";
    constexpr double wholeStraight = 35; // cm
    int others = -1;                     // but the counter itself
    for (const int row : catalogue.HeadRows()) {
        const bool isShort = catalogue[row].IsStraight() && std::fmod(catalogue[row].Kind.Length, wholeStraight) != 0;
        if (isShort) others += box.Counts[static_cast<std::size_t>(row)];
    }
    if (others > 0) return "";
    return "The lap counter is half a straight, and the box has no second one to lie opposite: add a C159, or do "
           "without the counter.";
}

} // namespace pistaro

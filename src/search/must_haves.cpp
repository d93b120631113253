#include "search/must_haves.h"

#include <array>
#include <cmath>

namespace pistaro {

namespace {

struct MustHave {
    bool MustHaves::*Is;
    bool (*Counts)(const CatalogueEntry&);
    int Fewest; ///< of the pieces that count
    const char* Lacking;
};

constexpr std::array<MustHave, 4> All{{
    {&MustHaves::LapCounter, [](const CatalogueEntry& piece) { return piece.Kind.Marks == PieceMarks::LapCounter; }, 1,
     "no lap counter"},
    {&MustHaves::BankedCurve, [](const CatalogueEntry& piece) { return piece.Banked; }, 1, "no banked curve"},
    {&MustHaves::ChangeOvers, [](const CatalogueEntry& piece) { return piece.LaneChange; }, 2,
     "no pair of change-overs"},
    {&MustHaves::Chicane, [](const CatalogueEntry& piece) { return piece.IsChicane(); }, 2, "no two ends of a chicane"},
}};

} // namespace

bool HasAll(const Catalogue& catalogue, const std::vector<int>& rows, const MustHaves& mustHave) {
    for (const MustHave& one : All) {
        if (!(mustHave.*one.Is)) continue;
        int count = 0;
        for (const int row : rows)
            count += one.Counts(catalogue[row]) ? 1 : 0;
        if (count < one.Fewest) return false;
    }
    return true;
}

std::string WhyNot(const Catalogue& catalogue, const PieceBox& box, const MustHaves& mustHave) {
    for (const MustHave& one : All) {
        if (!(mustHave.*one.Is)) continue;
        int count = 0;
        for (const int row : catalogue.HeadRows())
            count += one.Counts(catalogue[row]) ? box.Counts[static_cast<std::size_t>(row)] : 0;
        if (count < one.Fewest) return std::string("The box holds ") + one.Lacking + ".";
    }
    return "";
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

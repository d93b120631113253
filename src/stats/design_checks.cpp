#include "stats/design_checks.h"

#include "stats/limits.h"
#include "text/number_text.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace pistaro {

namespace {

DesignWarning Warning(DesignCheck check, const std::string& text, int track) {
    return {check, track, {Icon::Exclamation, text + SignedNumberText(track + 1) + " !"}};
}

/// The Ninco changer is never counted.
bool HasOddChangeOvers(const Catalogue& catalogue, const StockTally& tally) {
    int changeOvers = 0;
    for (const int row : catalogue.ProductRows()) {
        if (!catalogue[row].LaneChange) continue;
        if (const TallyRow* const counted = FindTallyRow(tally, ProductCode(catalogue[row].Code)))
            changeOvers += counted->TrackCount;
    }
    return changeOvers % 2 != 0;
}

/// Chicanes pair up along the track. One in the last two places is not checked, one without a partner is checked up to
/// the end.
int StrangersBetweenChicanes(const Catalogue& catalogue, const Track& track) {
    const auto isChicane = [&](const std::string& code) {
        const CatalogueEntry* const piece = catalogue.Find(code);
        return piece != nullptr && piece->IsChicane();
    };
    const auto isExtension = [&](const std::string& code) {
        const CatalogueEntry* const piece = catalogue.Find(code);
        return piece != nullptr && piece->IsChicaneExtension();
    };
    const std::vector<std::string>& codes = track.ElementCodes;
    int strangers = 0;
    for (auto code = codes.begin(); code != codes.end(); ++code) {
        if (!isChicane(*code) || codes.end() - code <= 2) continue;
        const auto closing = std::find_if(code + 1, codes.end(), isChicane);
        strangers += static_cast<int>((closing - code - 1) - std::count_if(code + 1, closing, isExtension));
        if (closing == codes.end()) break;
        code = closing;
    }
    return strangers;
}

bool IsNinco(const std::string& code) { return IsOfSystem(code, TrackSystem::Ninco); }

bool JoinsSystems(const Catalogue& catalogue, const std::string& code) {
    const CatalogueEntry* const piece = catalogue.Find(code);
    return piece != nullptr && piece->JoinsSystems();
}

/// Whether a piece that follows `before` needs a converter between them.
bool LacksConverter(const Catalogue& catalogue, const std::string& before, const std::string& code) {
    if (IsNinco(code)) return !JoinsSystems(catalogue, code) && !IsNinco(before);
    return IsOfSystem(code, TrackSystem::Scalextric) && IsNinco(before) && !JoinsSystems(catalogue, before);
}

/// The track is taken to be closed: the last piece comes before the first.
bool JoinsSystemsWithoutConverter(const Catalogue& catalogue, const Track& track) {
    const std::vector<std::string>& codes = track.ElementCodes;
    for (std::size_t e = 0; e < codes.size(); ++e) {
        if (LacksConverter(catalogue, e == 0 ? codes.back() : codes[e - 1], codes[e])) return true;
    }
    return false;
}

void CheckTrack(const Catalogue& catalogue, const Circuit& circuit, int track, std::vector<DesignWarning>& warnings) {
    using enum DesignCheck;
    const Track& pieces = circuit.Tracks[static_cast<std::size_t>(track)];
    if (HasOddChangeOvers(catalogue, Measure(catalogue, {}, circuit, track).Tally)) {
        warnings.push_back(
            Warning(ChangeOvers, "You have used an uneven number of change-over sections for track", track));
    }
    for (int strangers = StrangersBetweenChicanes(catalogue, pieces); strangers > 0; --strangers) {
        warnings.push_back(Warning(Chicane, "Check your chicane design for track", track));
    }
    if (JoinsSystemsWithoutConverter(catalogue, pieces)) {
        warnings.push_back(Warning(SystemJoins, "Check your Ninco track design for track", track));
    }
}

/// The rows of the plain pieces that special ones can stand for, in the order in which they are told of.
std::vector<int> ReplaceableRows(const Catalogue& catalogue) {
    std::vector<int> rows;
    std::ranges::copy_if(catalogue.VariantRows(), std::back_inserter(rows),
                         [&](int row) { return catalogue[row].IsBasic(); });
    std::ranges::stable_sort(rows, {}, [&](int row) { return catalogue[row].SpecialsPlace; });
    return rows;
}

} // namespace

std::int16_t RemainingOwned(const Catalogue& catalogue, const Stock& stock, const StockTally& circuit,
                            std::string_view code) {
    const TallyRow* const row = FindTallyRow(circuit, code);
    if (row == nullptr) return 0;
    return Count(stock[catalogue.FindHeadRow(code)].OwnedCount - row->TrackCount);
}

std::vector<DesignWarning> DesignWarnings(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit) {
    std::vector<DesignWarning> warnings;
    for (int track = 0; track < TrackCount; ++track)
        CheckTrack(catalogue, circuit, track, warnings);

    const StockTally tally = Measure(catalogue, {}, circuit, AllTracks).Tally;
    const auto remaining = [&](int row) {
        return RemainingOwned(catalogue, stock, tally, ProductCode(catalogue[row].Code));
    };
    for (const int plain : ReplaceableRows(catalogue)) {
        if (remaining(plain) >= 0) continue;
        const bool helps = std::ranges::any_of(catalogue.VariantRows(), [&](int special) {
            return special != plain && catalogue[special].ShapeIndex == plain && remaining(special) > 0;
        });
        if (!helps) continue;
        const Message told{Icon::Information, "You have not used all your " + catalogue[plain].Specials};
        warnings.push_back({DesignCheck::UnusedSpecials, AllTracks, told});
    }
    return warnings;
}

std::vector<Message> DesignChecks(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit) {
    std::vector<Message> messages;
    for (DesignWarning& warning : DesignWarnings(catalogue, stock, circuit))
        messages.push_back(std::move(warning.Told));
    return messages;
}

} // namespace pistaro

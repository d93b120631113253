// The checks in the order in which they are told.
#include "stats/design_checks.h"

#include "catalogue/special_pieces.h"
#include "stats/limits.h"
#include "text/number_text.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

namespace pistaro {

namespace {

Message Warning(const std::string& text, int track) {
    return {Icon::Exclamation, text + SignedNumberText(track + 1) + " !"};
}

/// Both changers are looked for in the whole tally, though the Ninco one is never counted in it.
bool HasOddChangeOvers(const Catalogue& catalogue, const StockTally& tally) {
    int changeOvers = 0;
    for (const CatalogueEntry& piece : catalogue) {
        if (!piece.LaneChange) continue;
        const auto row = std::find_if(tally.begin(), tally.end(), [&](const TallyRow& product) {
            return product.StockCode == ProductCode(piece.Code);
        });
        if (row != tally.end()) changeOvers += row->TrackCount;
    }
    return changeOvers % 2 != 0;
}

/// Chicanes pair up along the track. One in the last two places is not checked, one without a partner is checked up to
/// the end.
int StrangersBetweenChicanes(const Track& track) {
    const std::vector<std::string>& codes = track.ElementCodes;
    int strangers = 0;
    for (auto code = codes.begin(); code != codes.end(); ++code) {
        if (!IsChicane(*code) || codes.end() - code <= 2) continue;
        const auto closing = std::find_if(code + 1, codes.end(), IsChicane);
        strangers += static_cast<int>((closing - code - 1) - std::count_if(code + 1, closing, IsChicaneExtension));
        if (closing == codes.end()) break;
        code = closing;
    }
    return strangers;
}

bool IsNinco(const std::string& code) { return IsOfSystem(code, TrackSystem::Ninco); }

/// Whether a piece that follows `before` needs a converter between them.
bool LacksConverter(const std::string& before, const std::string& code) {
    if (IsNinco(code)) return !IsConversionPiece(code) && !IsNinco(before);
    return IsOfSystem(code, TrackSystem::Scalextric) && IsNinco(before) && !IsConversionPiece(before);
}

/// The track is taken to be closed: the last piece comes before the first.
bool JoinsSystemsWithoutConverter(const Track& track) {
    const std::vector<std::string>& codes = track.ElementCodes;
    for (std::size_t e = 0; e < codes.size(); ++e) {
        if (LacksConverter(e == 0 ? codes.back() : codes[e - 1], codes[e])) return true;
    }
    return false;
}

void CheckTrack(const Project& project, int track, std::vector<Message>& messages) {
    const Track& pieces = project.Layout.Tracks[static_cast<std::size_t>(track)];
    if (HasOddChangeOvers(project.Pieces, Measure(project, track).Tally)) {
        messages.push_back(Warning("You have used an uneven number of change-over sections for track", track));
    }
    for (int strangers = StrangersBetweenChicanes(pieces); strangers > 0; --strangers) {
        messages.push_back(Warning("Check your chicane design for track", track));
    }
    if (JoinsSystemsWithoutConverter(pieces)) {
        messages.push_back(Warning("Check your Ninco track design for track", track));
    }
}

constexpr std::array<std::string_view, 2> HalfStraightSpecials{"C277", "C367"};
constexpr std::array<std::string_view, 6> StandardStraightSpecials{"C164", "C248", "C8005", "C8006", "C8007", "C8009"};
constexpr std::array<std::string_view, 1> StandardCurveSpecials{"C8010"};
constexpr std::array<std::string_view, 1> NincoStraightSpecials{"N10111"};

/// A plain piece and the special ones that fit in its place.
struct Substitution {
    std::string_view Plain;
    std::span<const std::string_view> Specials;
    const char* Text;
};

constexpr std::array<Substitution, 4> Substitutions{{
    {"C159", HalfStraightSpecials, "You have not used all your half straight sized special track"},
    {"C160", StandardStraightSpecials, "You have not used all your standard straight sized special track"},
    {"C151", StandardCurveSpecials, "You have not used all your standard curve sized special track"},
    {"N10102", NincoStraightSpecials, "You have not used all your Ninco change-over sections"},
}};

} // namespace

std::int16_t RemainingOwned(const Catalogue& catalogue, const StockTally& circuit, std::string_view code) {
    const TallyRow* const row = FindTallyRow(circuit, code);
    if (row == nullptr) return 0;
    return Count(Entry(catalogue, FindHeadRow(catalogue, code)).OwnedCount - row->TrackCount);
}

std::vector<Message> DesignChecks(const Project& project) {
    std::vector<Message> messages;
    for (int track = 0; track < TrackCount; ++track)
        CheckTrack(project, track, messages);

    const StockTally circuit = Measure(project, AllTracks).Tally;
    const auto remaining = [&](std::string_view code) { return RemainingOwned(project.Pieces, circuit, code); };
    for (const Substitution& pieces : Substitutions) {
        const bool helps = remaining(pieces.Plain) < 0 &&
                           std::any_of(pieces.Specials.begin(), pieces.Specials.end(),
                                       [&](std::string_view special) { return remaining(special) > 0; });
        if (helps) messages.push_back({Icon::Information, pieces.Text});
    }
    return messages;
}

} // namespace pistaro

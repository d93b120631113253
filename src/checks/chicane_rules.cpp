// Chicanes pair up along the track: so that few strangers stand between them, and few chicanes stand alone.
#include "checks/chicane_rules.h"

#include <algorithm>
#include <limits>

namespace pistaro {

namespace {

enum class Role { Chicane, Extension, Stranger };

Role RoleOf(const Catalogue& catalogue, const std::string& code) {
    const CatalogueEntry* const piece = catalogue.Find(code);
    if (piece == nullptr) return Role::Stranger;
    if (piece->IsChicane()) return Role::Chicane;
    return piece->IsChicaneExtension() ? Role::Extension : Role::Stranger;
}

/// What belongs to the chicanes of a track.
struct Chicanes {
    std::vector<std::vector<int>> Strangers; ///< of each pair that has some
    std::vector<int> Lone;                   ///< chicanes without a partner, and extensions outside a pair
};

/// How many strangers make two chicanes no pair.
constexpr int LoneCost = 3;

/// Which of the chicanes are the second of a pair.
std::vector<bool> EndsPair(const std::vector<int>& costWithNext) {
    const std::size_t count = costWithNext.size() + 1;
    std::vector<int> best(count + 1, 0);
    std::vector<bool> paired(count + 1, false);
    for (std::size_t k = 1; k <= count; ++k) {
        best[k] = best[k - 1] + LoneCost;
        if (k < 2) continue;
        const int asPair = best[k - 2] + costWithNext[k - 2];
        paired[k] = asPair <= best[k];
        best[k] = std::min(best[k], asPair);
    }
    std::vector<bool> ends(count, false);
    for (std::size_t k = count; k > 0; k -= paired[k] ? 2 : 1)
        ends[k - 1] = paired[k];
    return ends;
}

Chicanes ChicanesOf(const Catalogue& catalogue, const Track& track) {
    std::vector<Role> roles;
    std::vector<int> chicanes;
    std::vector<int> strangersBefore{0}; // of each element, from the track's beginning
    for (const std::string& code : track.ElementCodes) {
        roles.push_back(RoleOf(catalogue, code));
        if (roles.back() == Role::Chicane) chicanes.push_back(static_cast<int>(roles.size()) - 1);
        strangersBefore.push_back(strangersBefore.back() + (roles.back() == Role::Stranger ? 1 : 0));
    }
    std::vector<int> strangersToNext;
    for (std::size_t i = 1; i < chicanes.size(); ++i)
        strangersToNext.push_back(strangersBefore[static_cast<std::size_t>(chicanes[i])] -
                                  strangersBefore[static_cast<std::size_t>(chicanes[i - 1])]);
    Chicanes found;
    std::vector<bool> isWithin(roles.size(), false);
    if (!chicanes.empty()) {
        const std::vector<bool> endsPair = EndsPair(strangersToNext);
        for (std::size_t i = 0; i < chicanes.size(); ++i) {
            if (!endsPair[i]) continue;
            std::vector<int> strangers;
            for (int element = chicanes[i - 1]; element <= chicanes[i]; ++element) {
                isWithin[static_cast<std::size_t>(element)] = true;
                if (roles[static_cast<std::size_t>(element)] == Role::Stranger) strangers.push_back(element);
            }
            if (!strangers.empty()) found.Strangers.push_back(strangers);
        }
    }
    for (std::size_t element = 0; element < roles.size(); ++element) {
        if (roles[element] != Role::Stranger && !isWithin[element]) found.Lone.push_back(static_cast<int>(element));
    }
    return found;
}

bool HasChicanePieces(const CheckedTrack& track) {
    return std::ranges::any_of(track.Pieces, [](const LaidPiece& laid) {
        return laid.Piece->IsChicane() || laid.Piece->IsChicaneExtension();
    });
}

std::string NamesOf(const CheckedCircuit& circuit, int track, const std::vector<int>& elements) {
    std::string names;
    for (const int element : elements)
        names += (names.empty() ? "" : ", ") + circuit.NameOf({track, element});
    return names;
}

} // namespace

std::vector<Finding> FindLoneChicanes(const CheckedCircuit& circuit) {
    std::vector<Finding> findings;
    for (const CheckedTrack& track : circuit.Tracks) {
        if (!HasChicanePieces(track)) continue;
        for (const int element : ChicanesOf(circuit.Kinds, *track.Track).Lone) {
            const bool isChicane =
                circuit.Kinds.Find(track.Track->ElementCodes[static_cast<std::size_t>(element)])->IsChicane();
            findings.push_back({"",
                                Severity::Warning,
                                track.Index,
                                {element},
                                circuit.NameOf({track.Index, element}) +
                                    (isChicane ? " has no second chicane that leads the lanes apart again."
                                               : " stands outside a pair of chicanes: its lanes meet no others.")});
        }
    }
    return findings;
}

std::vector<Finding> FindStrangersInChicanes(const CheckedCircuit& circuit) {
    std::vector<Finding> findings;
    for (const CheckedTrack& track : circuit.Tracks) {
        if (!HasChicanePieces(track)) continue;
        const Chicanes chicanes = ChicanesOf(circuit.Kinds, *track.Track);
        for (const std::vector<int>& strangers : chicanes.Strangers)
            findings.push_back({"", Severity::Warning, track.Index, strangers,
                                "Between two chicanes only their extensions belong, not " +
                                    NamesOf(circuit, track.Index, strangers) + "."});
        // The statistics pair them as they come, whatever stands between.
        const bool isTold = !chicanes.Strangers.empty() || !chicanes.Lone.empty();
        if (isTold || circuit.FindStatisticsWarning(DesignCheck::Chicane, track.Index) == nullptr) continue;
        findings.push_back({"", Severity::Warning, track.Index, {0}, "The statistics find strangers in its chicanes."});
    }
    return findings;
}

} // namespace pistaro

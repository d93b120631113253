#include "checks/crossings.h"

#include "checks/checked_circuit.h"
#include "text/fixed_text.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace pistaro {

namespace {

std::string AreaText(double area, const Units& units) {
    const double factor = units.UnitFactor();
    return FixedText(area / (factor * factor), units.Inches ? 1 : 0) + " " + units.Name() + "²";
}

PieceAddress FirstOf(const Finding& overlap) { return {overlap.Track, overlap.Pieces.front()}; }

/// The names of a track's elements, of which neighbours are named by their first and last.
std::string NamesOf(const Circuit& circuit, int track, const std::vector<int>& elements) {
    const std::vector<std::string>& codes = circuit.Tracks[static_cast<std::size_t>(track)].ElementCodes;
    const auto name = [&](int element) {
        return codes[static_cast<std::size_t>(element)] + " (" + std::to_string(element) + ")";
    };
    std::string names;
    for (const std::vector<int>& run : RunsOf(elements))
        names += (names.empty() ? "" : ", ") + name(run.front()) + (run.size() == 1 ? "" : " to " + name(run.back()));
    return names;
}

void SortOnce(std::vector<int>& elements) {
    std::ranges::sort(elements);
    elements.erase(std::unique(elements.begin(), elements.end()), elements.end());
}

/// Overlaps, by their places among the findings, that belong to one another.
class Crossings {
public:
    Crossings(const Circuit& circuit, const std::vector<Finding>& findings) : circuit_(circuit), findings_(findings) {
        leaders_.resize(findings.size());
        std::iota(leaders_.begin(), leaders_.end(), std::size_t{0});
        for (std::size_t later = 0; later < findings.size(); ++later) {
            for (std::size_t earlier = 0; earlier < later; ++earlier) {
                if (BelongTogether(findings[earlier], findings[later])) Join(earlier, later);
            }
        }
    }

    /// The first of those that it belongs to.
    std::size_t LeaderOf(std::size_t finding) const {
        while (leaders_[finding] != finding)
            finding = leaders_[finding];
        return finding;
    }

    /// All that belong to the first of them.
    std::vector<const Finding*> PartsOf(std::size_t leader) const {
        std::vector<const Finding*> parts;
        for (std::size_t at = leader; at < findings_.size(); ++at) {
            if (LeaderOf(at) == leader) parts.push_back(&findings_[at]);
        }
        return parts;
    }

private:
    bool AreBeside(PieceAddress one, PieceAddress other) const {
        const int size = circuit_.Tracks[static_cast<std::size_t>(one.Track)].ElementLastIndex() + 1;
        const int apart = std::abs(one.Element - other.Element);
        return one.Track == other.Track && (apart <= 1 || apart == size - 1);
    }

    bool BelongTogether(const Finding& one, const Finding& other) const {
        return one.Rule == "overlap" && other.Rule == "overlap" && AreBeside(FirstOf(one), FirstOf(other)) &&
               AreBeside(SecondOf(one), SecondOf(other));
    }

    void Join(std::size_t one, std::size_t other) {
        const auto [first, second] = std::minmax({LeaderOf(one), LeaderOf(other)});
        leaders_[second] = first;
    }

    const Circuit& circuit_;
    const std::vector<Finding>& findings_;
    std::vector<std::size_t> leaders_; ///< of each an earlier one that it belongs to, or itself
};

Finding Together(const Circuit& circuit, const std::vector<const Finding*>& parts, const Units& units) {
    if (parts.size() == 1) return *parts.front();
    std::vector<int> first;
    std::vector<int> second;
    Finding whole = *parts.front();
    whole.SharedArea = 0;
    for (const Finding* const part : parts) {
        first.push_back(FirstOf(*part).Element);
        second.push_back(SecondOf(*part).Element);
        whole.SharedArea += part->SharedArea;
    }
    SortOnce(first);
    SortOnce(second);
    const int other = SecondOf(whole).Track;
    whole.Text = OverlapText(NamesOf(circuit, whole.Track, first), NamesOf(circuit, other, second), whole, units);
    if (std::ranges::any_of(parts, [](const Finding* part) { return part->Text.ends_with(MoreOverlaps); }))
        whole.Text += MoreOverlaps;
    whole.Pieces = first;
    if (whole.Others.empty()) {
        whole.Pieces.insert(whole.Pieces.end(), second.begin(), second.end());
        SortOnce(whole.Pieces);
        return whole;
    }
    whole.Others.resize(second.size());
    std::ranges::transform(second, whole.Others.begin(), [&](int element) { return PieceAddress{other, element}; });
    return whole;
}

} // namespace

std::string OverlapText(const std::string& first, const std::string& second, const Finding& finding,
                        const Units& units) {
    const std::string ofTrack =
        finding.Others.empty() ? "" : " of track " + std::to_string(finding.Others.front().Track + 1);
    return first + " and " + second + ofTrack + " overlap by " + AreaText(finding.SharedArea, units) + ".";
}

std::vector<Finding> CrossingsTogether(const Circuit& circuit, const std::vector<Finding>& findings,
                                       const Units& units) {
    const Crossings crossings(circuit, findings);
    std::vector<Finding> together;
    together.reserve(findings.size());
    for (std::size_t at = 0; at < findings.size(); ++at) {
        if (crossings.LeaderOf(at) == at) together.push_back(Together(circuit, crossings.PartsOf(at), units));
    }
    return together;
}

} // namespace pistaro

#include "checks/track_rules.h"

#include "catalogue/track_geometry.h"
#include "model/length_text.h"
#include "text/count_text.h"
#include "text/fixed_text.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace pistaro {

namespace {

std::string Degrees(double radians) { return FixedText(std::fabs(radians) * 180 / PiValue, 1) + "°"; }

/// Calls visit(track) for each track that is more than something begun.
template <typename Visit>
void ForEachWorthwhile(const CheckedCircuit& circuit, Visit visit) {
    for (const CheckedTrack& track : circuit.Tracks) {
        if (track.IsWorthwhile()) visit(track);
    }
}

std::vector<int> ElementsWhere(const CheckedTrack& track, auto holds) {
    std::vector<int> elements;
    for (const LaidPiece& laid : track.Pieces) {
        if (holds(*laid.Piece)) elements.push_back(laid.Element);
    }
    return elements;
}

Finding OpenTrack(const CheckedCircuit& circuit, const CheckedTrack& track) {
    const std::string apart =
        LengthText(track.Gap.Distance, circuit.Shown) + " and " + Degrees(track.Gap.Angle) + " apart";
    const std::vector<int> ends{0, track.Track->ElementLastIndex()};
    if (track.End == Closing::Pressed)
        return {"", Severity::Warning, track.Index, ends, "The ends are " + apart + ": they can be pressed together."};
    return {"", Severity::Error, track.Index, ends, "The track does not close: its ends are " + apart + "."};
}

struct Joint {
    const LaidPiece& Before;
    const LaidPiece& After;

    /// Track of the two systems has different widths.
    bool IsUneven() const { return std::fabs(Before.ExitWidth - After.EntryWidth) > 0.1; }
    bool HasAdapter() const { return Before.Piece->JoinsSystems() || After.Piece->JoinsSystems(); }
    std::vector<int> Pieces() const {
        return {std::min(Before.Element, After.Element), std::max(Before.Element, After.Element)};
    }
};

/// The joints at which edge does not meet edge, with an adapter beside them or without.
std::vector<Joint> UnevenJoints(const CheckedTrack& track, bool withAdapter) {
    std::vector<Joint> joints;
    const std::vector<LaidPiece>& pieces = track.Pieces;
    for (std::size_t i = track.IsRound() ? 0 : 1; i < pieces.size(); ++i) {
        const Joint joint{i == 0 ? pieces.back() : pieces[i - 1], pieces[i]};
        if (joint.IsUneven() && joint.HasAdapter() == withAdapter) joints.push_back(joint);
    }
    return joints;
}

std::string Meets(const CheckedCircuit& circuit, const CheckedTrack& track, const Joint& joint) {
    return circuit.NameOf({track.Index, joint.Before.Element}) + ", " +
           LengthText(joint.Before.ExitWidth, circuit.Shown) + " wide, meets " +
           circuit.NameOf({track.Index, joint.After.Element}) + ", " +
           LengthText(joint.After.EntryWidth, circuit.Shown) + " wide";
}

std::vector<Finding> UnevenJoints(const CheckedCircuit& circuit, bool withAdapter, const char* reason) {
    std::vector<Finding> findings;
    for (const CheckedTrack& track : circuit.Tracks) {
        for (const Joint& joint : UnevenJoints(track, withAdapter))
            findings.push_back(
                {"", Severity::Error, track.Index, joint.Pieces(), Meets(circuit, track, joint) + reason});
    }
    return findings;
}

/// Each piece of its kind stands once on a track that has Scalextric pieces; Ninco track has none of them.
std::vector<Finding> NotJustOne(const CheckedCircuit& circuit, PieceMarks marks, const std::string& thing) {
    std::vector<Finding> findings;
    ForEachWorthwhile(circuit, [&](const CheckedTrack& track) {
        const auto isScalextric = [](const LaidPiece& laid) { return laid.Piece->System == TrackSystem::Scalextric; };
        if (std::ranges::none_of(track.Pieces, isScalextric)) return;
        const std::vector<int> found =
            ElementsWhere(track, [&](const CatalogueEntry& piece) { return piece.Kind.Marks == marks; });
        if (found.empty())
            findings.push_back({"", Severity::Advice, track.Index, {0}, "The track has no " + thing + "."});
        if (found.size() > 1)
            findings.push_back(
                {"", Severity::Advice, track.Index, found, "The track has " + CountText(found.size(), thing) + "."});
    });
    return findings;
}

/// The tightest curve of its system.
bool IsInnerCurve(const Catalogue& catalogue, const CatalogueEntry& piece) {
    if (piece.IsStraight()) return false;
    return std::ranges::none_of(catalogue, [&](const CatalogueEntry& other) {
        return other.System == piece.System && !other.IsStraight() && other.Kind.InnerRadius < piece.Kind.InnerRadius;
    });
}

} // namespace

std::vector<Finding> FindUnknownCodes(const CheckedCircuit& circuit) {
    std::vector<Finding> findings;
    for (const CheckedTrack& track : circuit.Tracks) {
        const std::vector<std::string>& codes = track.Track->ElementCodes;
        if (track.Pieces.size() == codes.size()) continue;
        std::map<std::string, std::vector<int>> unknown;
        for (std::size_t element = 0; element < codes.size(); ++element) {
            if (circuit.Kinds.Find(codes[element]) == nullptr)
                unknown[codes[element]].push_back(static_cast<int>(element));
        }
        for (const auto& [code, elements] : unknown)
            findings.push_back({"", Severity::Error, track.Index, elements,
                                "\"" + code + "\" is no piece of the catalogue: " +
                                    CountText(elements.size(), "element") + " cannot be laid."});
    }
    return findings;
}

std::vector<Finding> FindOpenTracks(const CheckedCircuit& circuit) {
    std::vector<Finding> findings;
    ForEachWorthwhile(circuit, [&](const CheckedTrack& track) {
        if (track.End != Closing::Closed) findings.push_back(OpenTrack(circuit, track));
    });
    return findings;
}

std::vector<Finding> FindUnconvertedJoints(const CheckedCircuit& circuit) {
    std::vector<Finding> findings = UnevenJoints(circuit, false, ": an adapter must stand between them.");
    for (const CheckedTrack& track : circuit.Tracks) {
        // The statistics take every track to be closed, and unknown codes to be of the system that they begin like.
        const DesignWarning* const told = circuit.FindStatisticsWarning(DesignCheck::SystemJoins, track.Index);
        const auto isHere = [&](const Finding& finding) { return finding.Track == track.Index; };
        if (told == nullptr || std::ranges::any_of(findings, isHere)) continue;
        findings.push_back({"",
                            Severity::Warning,
                            track.Index,
                            {0, track.Track->ElementLastIndex()},
                            "Both systems would meet without an adapter where the track closes."});
    }
    return findings;
}

std::vector<Finding> FindReversedAdapters(const CheckedCircuit& circuit) {
    return UnevenJoints(circuit, true, ": the adapter lies the wrong way round.");
}

std::vector<Finding> FindOddChangeOvers(const CheckedCircuit& circuit) {
    std::vector<Finding> findings;
    for (const CheckedTrack& track : circuit.Tracks) {
        const bool told = circuit.FindStatisticsWarning(DesignCheck::ChangeOvers, track.Index) != nullptr;
        if (!track.Lanes.Joined && !told) continue;
        std::vector<int> changers = ElementsWhere(track, [](const CatalogueEntry& piece) { return piece.LaneChange; });
        const double length = track.Lanes.Lengths[0] + track.Lanes.Lengths[1];
        const std::string text = CountText(changers.size(), "change-over") +
                                 (track.Lanes.Joined ? ": each lane leads into the other, one way of " +
                                                           LengthText(length, circuit.Shown) + " in two laps."
                                                     : ", of which the statistics count an uneven number.");
        if (changers.empty()) changers = {0};
        findings.push_back({"", Severity::Warning, track.Index, changers, text});
    }
    return findings;
}

std::vector<Finding> FindUnequalLanes(const CheckedCircuit& circuit) {
    constexpr double allowed = 0.01;
    std::vector<Finding> findings;
    ForEachWorthwhile(circuit, [&](const CheckedTrack& track) {
        if (track.Lanes.Joined) return;
        const auto [left, right] = track.Lanes.Lengths;
        const double difference = std::fabs(left - right);
        const double part = difference / std::max(left, right);
        if (!(part > allowed)) return;
        findings.push_back({"",
                            Severity::Advice,
                            track.Index,
                            {0, track.Track->ElementLastIndex()},
                            "The lanes differ by " + LengthText(difference, circuit.Shown) + ", " +
                                FixedText(100 * part, 1) + " %: the left one is " + LengthText(left, circuit.Shown) +
                                " long, the right one " + LengthText(right, circuit.Shown) + "."});
    });
    return findings;
}

std::vector<Finding> FindFastCorners(const CheckedCircuit& circuit) {
    constexpr double longest = 250; // cm
    std::vector<Finding> findings;
    for (const CheckedTrack& track : circuit.Tracks) {
        const std::vector<LaidPiece>& pieces = track.Pieces;
        const auto isStraight = [](const LaidPiece& laid) { return laid.Piece->IsStraight(); };
        // Round a closed track a run may begin before its end: there the walk begins after the first curve.
        const auto firstCurve = std::ranges::find_if_not(pieces, isStraight);
        if (firstCurve == pieces.end()) continue;
        const std::size_t begin = track.IsRound() ? static_cast<std::size_t>(firstCurve - pieces.begin()) + 1 : 0;
        std::vector<int> run;
        double length = 0;
        for (std::size_t i = begin; i < begin + pieces.size(); ++i) {
            const LaidPiece& laid = pieces[i % pieces.size()];
            run.push_back(laid.Element);
            if (isStraight(laid)) {
                length += laid.Piece->Kind.Length;
                continue;
            }
            if (length > longest && IsInnerCurve(circuit.Kinds, *laid.Piece)) {
                std::ranges::sort(run);
                findings.push_back({"", Severity::Advice, track.Index, run,
                                    "A straight run of " + LengthText(length, circuit.Shown) + " leads into " +
                                        circuit.NameOf({track.Index, laid.Element}) +
                                        ", a curve of the inner radius."});
            }
            run.clear();
            length = 0;
        }
    }
    return findings;
}

std::vector<Finding> FindLapCounters(const CheckedCircuit& circuit) {
    return NotJustOne(circuit, PieceMarks::LapCounter, "lap counter");
}

std::vector<Finding> FindStartSections(const CheckedCircuit& circuit) {
    return NotJustOne(circuit, PieceMarks::ReverseStart, "start section");
}

} // namespace pistaro

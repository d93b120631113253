// A change-over leads each lane to the other's place, so all that follows counts the other way: with the differences
// summed up along the track, what any two or three of them do is a subtraction. Turned runs are few, and measured anew.
#include "checks/balance.h"

#include "checks/change_over_places.h"
#include "checks/check.h"
#include "checks/checked_circuit.h"
#include "layout/built_lanes.h"
#include "layout/placement.h"
#include "layout/track_gap.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <set>

namespace pistaro {

namespace {

double Difference(const BuiltLanes& lanes) { return lanes.Lengths[0] - lanes.Lengths[1]; }

bool IsEven(const BuiltLanes& lanes) { return !lanes.Joined && std::fabs(Difference(lanes)) <= BalancedWithin; }

/// A change of some neighbouring elements.
struct Change {
    int First;
    std::vector<std::string> Codes;
    std::string Text;
};

void Apply(Track& track, const Change& change) {
    std::ranges::copy(change.Codes, track.ElementCodes.begin() + change.First);
}

std::string NameOf(const Track& track, int element) {
    return track.ElementCodes[static_cast<std::size_t>(element)] + " (" + std::to_string(element) + ")";
}

std::string TurnText(const Track& track, int first, int last) {
    return "the bend " + NameOf(track, first) + " to " + NameOf(track, last) + " turned round";
}

/// The change-over for a plain straight, the plain straight for a change-over: of the same system, length and width.
/// Null where there is none, and for all other pieces.
const CatalogueEntry* SwapOf(const Catalogue& catalogue, const CatalogueEntry& piece) {
    if (!piece.LaneChange && !IsPlainStraight(piece)) return nullptr;
    const auto found = std::ranges::find_if(catalogue, [&](const CatalogueEntry& other) {
        return (piece.LaneChange ? IsPlainStraight(other) : other.LaneChange) && other.System == piece.System &&
               other.Kind.Length == piece.Kind.Length && other.Kind.Width == piece.Kind.Width;
    });
    return found == catalogue.end() ? nullptr : &*found;
}

/// Change-overs in place of plain straights, and the other way about.
std::vector<Change> ChangeOversFor(const Catalogue& catalogue, const Track& track) {
    std::vector<Change> changes;
    for (int element = 0; element <= track.ElementLastIndex(); ++element) {
        const CatalogueEntry* const piece = catalogue.Find(track.ElementCodes[static_cast<std::size_t>(element)]);
        if (piece == nullptr) continue;
        if (const CatalogueEntry* const other = SwapOf(catalogue, *piece))
            changes.push_back({element, {other->Code}, other->Code + " in place of " + NameOf(track, element)});
    }
    return changes;
}

/// Where pieces lead from a beginning.
BuildCursor EndOf(const Catalogue& catalogue, const std::vector<std::string>& codes) {
    Pose pose;
    for (const std::string& code : codes)
        pose = ExitOf(catalogue.Find(code)->Kind, pose);
    return pose;
}

bool IsSamePlace(const BuildCursor& a, const BuildCursor& b) {
    constexpr float samePlace = 0.02F; // cm
    return IsWithin(GapBetween(a, b), samePlace);
}

/// Runs of curves, both hands among them, that can be turned round: mirrored, they end where they ended.
std::vector<Change> TurnsFor(const Catalogue& catalogue, const Track& track) {
    constexpr int longest = 12;
    std::vector<Change> changes;
    for (int first = 0; first <= track.ElementLastIndex(); ++first) {
        std::vector<std::string> run;
        std::vector<std::string> mirrored;
        for (int last = first; last <= track.ElementLastIndex() && last < first + longest; ++last) {
            const std::string& code = track.ElementCodes[static_cast<std::size_t>(last)];
            const CatalogueEntry* const piece = catalogue.Find(code);
            if (piece == nullptr || piece->IsChicane() || piece->JoinsSystems()) break;
            if (run.empty() && piece->IsStraight()) break;
            run.push_back(code);
            mirrored.push_back(SwappedHand(code));
            if (piece->IsStraight() || run == mirrored) continue;
            if (!IsSamePlace(EndOf(catalogue, run), EndOf(catalogue, mirrored))) continue;
            changes.push_back({first, mirrored, TurnText(track, first, last)});
        }
    }
    return changes;
}

/// Curves of one hand, perhaps a few straights, and as many curves of the other: an S.
struct Bend {
    int First = 0, Size = 0;
};

/// The S that begins at an element with a curve, if one does.
std::optional<Bend> BendAt(const Catalogue& catalogue, const Track& track, int first) {
    constexpr int mostStraights = 3;
    const int end = track.ElementLastIndex() + 1;
    const auto hand = [&](int element) {
        const std::string& code = track.ElementCodes[static_cast<std::size_t>(element)];
        return element >= end || catalogue.Find(code) == nullptr ? char{0} : Hand(code);
    };
    const auto isStraight = [&](int element) {
        const CatalogueEntry* const piece = catalogue.Find(track.ElementCodes[static_cast<std::size_t>(element)]);
        return piece != nullptr && piece->IsStraight() && !piece->IsChicane() && !piece->JoinsSystems();
    };
    int middle = first;
    while (middle < end && hand(middle) == hand(first))
        ++middle;
    int second = middle;
    while (second < end && second - middle < mostStraights && isStraight(second))
        ++second;
    int last = second;
    while (last < end && last - second < middle - first && hand(last) != 0 && hand(last) != hand(first))
        ++last;
    if (last - second != middle - first) return std::nullopt;
    return Bend{first, last - first};
}

std::vector<Bend> BendsOf(const Catalogue& catalogue, const Track& track) {
    constexpr std::size_t most = 60; // whose pairs are looked at one by one
    std::vector<Bend> bends;
    for (int first = 0; first <= track.ElementLastIndex() && bends.size() < most; ++first) {
        const std::string& code = track.ElementCodes[static_cast<std::size_t>(first)];
        if (catalogue.Find(code) == nullptr || Hand(code) == 0) continue;
        if (const std::optional<Bend> bend = BendAt(catalogue, track, first)) bends.push_back(*bend);
    }
    return bends;
}

std::vector<std::string> CodesOf(const Track& track, const Bend& bend) {
    const auto begin = track.ElementCodes.begin() + bend.First;
    return {begin, begin + bend.Size};
}

/// What a search is about: a track of a design, and what must not become worse.
class Balancer {
public:
    Balancer(const Catalogue& catalogue, const Design& design, int track)
        : catalogue_(catalogue), design_(design), at_(static_cast<std::size_t>(track)),
          track_(design.Circuit.Tracks[at_]), lanes_(LanesAsBuilt(catalogue, track_)), gap_(GapOf(catalogue, track_)),
          errors_(ErrorsOf(design)), changeOvers_(ChangeOversFor(catalogue, track_)), places_(catalogue, track_) {
        for (const Change& change : changeOvers_)
            rest_.push_back(RestBehind(change.First));
    }

    Balance Find() const {
        Balance balance{.Before = std::fabs(Difference(lanes_)),
                        .Joined = lanes_.Joined,
                        .IsBalanced = IsEven(lanes_),
                        .IsOpen = ClosingOf(gap_) == Closing::Open,
                        .LacksStraights = changeOvers_.empty(),
                        .Steps = {}};
        if (balance.IsBalanced || track_.ElementCodes.empty()) return balance;
        const std::vector<std::vector<Change>> turns = Turns();
        double nearest = std::numeric_limits<double>::infinity();
        for (const std::size_t size : {1U, 2U, 3U}) {
            std::set<int> taken;
            for (int proposals = 0; proposals <= MostOthers; ++proposals) {
                const std::optional<std::vector<Change>> best = Best(turns, size, taken, nearest);
                if (!best) break;
                (balance.Steps.empty() ? balance.Steps : balance.Others.emplace_back()) = StepsOf(*best);
                for (const Change& change : *best)
                    for (std::size_t i = 0; i < change.Codes.size(); ++i)
                        taken.insert(change.First + static_cast<int>(i));
            }
            if (!balance.Steps.empty()) break;
        }
        if (std::isfinite(nearest)) balance.Nearest = nearest;
        return balance;
    }

private:
    static constexpr std::size_t MostChangeOvers = 200; ///< whose threes are looked at one by one
    static constexpr std::size_t MostTurns = 30;        ///< beside each of which every change-over is tried
    static constexpr int MostOthers = 2;

    /// The best of so many changes that touch no taken place; `nearest` becomes the least that any of them leaves.
    std::optional<std::vector<Change>> Best(const std::vector<std::vector<Change>>& turns, std::size_t size,
                                            const std::set<int>& taken, double& nearest) const {
        constexpr double alike = 0.01; // cm: of such the least awkward, of these the first
        std::optional<std::vector<Change>> best;
        double least = BalancedWithin;
        int awkward = 0;
        const auto consider = [&](const std::vector<Change>& changes, double difference) {
            if (difference > least || (best && difference > least - alike && Awkwardness(changes) >= awkward)) return;
            best = changes;
            awkward = Awkwardness(changes);
            least = std::min(difference + alike / 2, BalancedWithin);
        };
        ConsiderChangeOvers(size, taken, nearest, consider);
        std::size_t tried = 0;
        for (const std::vector<Change>& turn : turns) {
            if (lanes_.Joined && ++tried > MostTurns) break;
            if (turn.size() <= size && IsFree(turn, taken))
                ConsiderWithTurn(turn, size - turn.size(), taken, nearest, consider);
        }
        return best;
    }

    static bool IsFree(const std::vector<Change>& changes, const std::set<int>& taken) {
        return std::ranges::none_of(changes, [&](const Change& change) {
            const auto first = taken.lower_bound(change.First);
            return first != taken.end() && *first < change.First + static_cast<int>(change.Codes.size());
        });
    }

    bool PutsChangeOver(const Change& change) const {
        return change.Codes.size() == 1 && catalogue_.Find(change.Codes.front())->LaneChange;
    }

    int Awkwardness(const std::vector<Change>& changes) const {
        std::vector<int> put;
        std::vector<int> replaced;
        for (const Change& change : changes)
            (PutsChangeOver(change) ? put : replaced).push_back(change.First);
        return places_.Awkwardness(put, replaced);
    }

    long ErrorsOf(const Design& design) const {
        return std::ranges::count(CheckDesign(catalogue_, design, {}, {}), Severity::Error, &Finding::Severity);
    }

    /// By how much the lanes would differ from here on, were they not swapped here.
    double RestBehind(int element) const {
        double rest = 0;
        for (std::size_t i = static_cast<std::size_t>(element) + 1; i < lanes_.Pieces.size(); ++i)
            rest += lanes_.Pieces[i].Lengths[0] - lanes_.Pieces[i].Lengths[1];
        return rest;
    }

    /// Change-overs at so many places, of those that leave an even number of them.
    template <typename Consider>
    void ConsiderChangeOvers(std::size_t size, const std::set<int>& taken, double& nearest, Consider consider) const {
        if ((size % 2 == 1) != lanes_.Joined) return;
        std::vector<std::size_t> free;
        for (std::size_t i = 0; i < changeOvers_.size(); ++i) {
            if (!taken.contains(changeOvers_[i].First)) free.push_back(i);
        }
        const std::size_t count = size == 3 ? std::min(MostChangeOvers, free.size()) : free.size();
        const auto rest = [&](std::size_t at) { return rest_[free[at]]; };
        const auto change = [&](std::size_t at) -> const Change& { return changeOvers_[free[at]]; };
        const double whole = Difference(lanes_);
        const auto isNear = [&](double difference) {
            nearest = std::min(nearest, std::fabs(difference));
            return std::fabs(difference) <= BalancedWithin;
        };
        // Behind each of them what is left is taken off once, and put back behind the next.
        for (std::size_t a = 0; a < count; ++a) {
            const double first = whole - 2 * rest(a);
            if (size == 1 && isNear(first)) consider({change(a)}, std::fabs(first));
            for (std::size_t b = a + 1; b < count && size > 1; ++b) {
                const double second = first + 2 * rest(b);
                if (size == 2 && isNear(second)) consider({change(a), change(b)}, std::fabs(second));
                for (std::size_t c = b + 1; c < count && size > 2; ++c) {
                    const double third = second - 2 * rest(c);
                    if (isNear(third)) consider({change(a), change(b), change(c)}, std::fabs(third));
                }
            }
        }
    }

    /// One turn, and change-overs beside it: at most one more, as each is measured anew.
    template <typename Consider>
    void ConsiderWithTurn(const std::vector<Change>& turn, std::size_t more, const std::set<int>& taken,
                          double& nearest, Consider consider) const {
        if (more > 1 || (more == 1) != lanes_.Joined) return;
        const auto measure = [&](const std::vector<Change>& changes) {
            const BuiltLanes lanes = LanesAsBuilt(catalogue_, Changed(changes));
            const double difference = std::fabs(Difference(lanes));
            if (lanes.Joined || (difference >= nearest && !IsEven(lanes)) || !IsAllowed(changes)) return;
            nearest = std::min(nearest, difference);
            if (IsEven(lanes)) consider(changes, difference);
        };
        if (more == 0) return measure(turn);
        for (const Change& changeOver : changeOvers_) {
            const bool turned = std::ranges::any_of(turn, [&](const Change& change) {
                return changeOver.First >= change.First &&
                       changeOver.First < change.First + static_cast<int>(change.Codes.size());
            });
            if (turned || taken.contains(changeOver.First)) continue;
            std::vector<Change> changes = turn;
            changes.push_back(changeOver);
            measure(changes);
        }
    }

    Change TurnOf(const Bend& bend) const {
        std::vector<std::string> codes = CodesOf(track_, bend);
        std::ranges::transform(codes, codes.begin(), SwappedHand);
        return {bend.First, codes, TurnText(track_, bend.First, bend.First + bend.Size - 1)};
    }

    /// Bends turned round alone, and two of which one takes back what the other does.
    std::vector<std::vector<Change>> Turns() const {
        std::vector<std::vector<Change>> turns;
        for (const Change& turn : TurnsFor(catalogue_, track_))
            turns.push_back({turn});
        const std::vector<Bend> bends = BendsOf(catalogue_, track_);
        for (std::size_t a = 0; a < bends.size(); ++a) {
            for (std::size_t b = a + 1; b < bends.size(); ++b) {
                if (bends[b].First < bends[a].First + bends[a].Size) continue;
                turns.push_back({TurnOf(bends[a]), TurnOf(bends[b])});
            }
        }
        return turns;
    }

    Track Changed(const std::vector<Change>& changes) const {
        Track track = track_;
        for (const Change& change : changes)
            Apply(track, change);
        return track;
    }

    /// Whether the track closes as it did, and nothing becomes an error.
    bool IsAllowed(const std::vector<Change>& changes) const {
        Design design = design_;
        design.Circuit.Tracks[at_] = Changed(changes);
        const TrackGap gap = GapOf(catalogue_, design.Circuit.Tracks[at_]);
        if (!IsWithin(gap, gap_.Distance + ClosedDistance, std::fabs(gap_.Angle) + ClosedAngle)) return false;
        return ErrorsOf(design) <= errors_;
    }

    std::vector<BalanceStep> StepsOf(const std::vector<Change>& changes) const {
        std::vector<BalanceStep> steps;
        Track track = track_;
        for (const Change& change : changes) {
            Apply(track, change);
            const BuiltLanes lanes = LanesAsBuilt(catalogue_, track);
            steps.push_back({change.First, change.Codes, change.Text, lanes.Lengths, lanes.Joined});
        }
        return steps;
    }

    const Catalogue& catalogue_;
    const Design& design_;
    std::size_t at_;
    const Track& track_;
    BuiltLanes lanes_;
    TrackGap gap_;
    long errors_;
    std::vector<Change> changeOvers_;
    std::vector<double> rest_; ///< behind each of them
    ChangeOverPlaces places_;
};

} // namespace

bool IsPlainStraight(const CatalogueEntry& piece) {
    return piece.IsStraight() && piece.Kind.Marks == PieceMarks::None && piece.IsBasic() && !piece.LaneChange;
}

Balance BalanceLanes(const Catalogue& catalogue, const Design& design, int track) {
    return Balancer(catalogue, design, track).Find();
}

Track Balanced(const Track& track, const std::vector<BalanceStep>& steps) {
    Track balanced = track;
    for (const BalanceStep& step : steps)
        std::ranges::copy(step.Codes, balanced.ElementCodes.begin() + step.First);
    return balanced;
}

} // namespace pistaro

#include "search/closing.h"

#include "layout/overlap.h"
#include "search/chain_search.h"
#include "search/market.h"
#include "search/mending.h"
#include "search/ranking.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>

namespace pistaro {

namespace {

std::string Millimetres(float centimetres) {
    const long tenths = std::lround(double{centimetres} * 100);
    if (tenths == 0) return "less than 0.1 mm";
    const std::string whole = std::to_string(tenths / 10);
    return (tenths % 10 == 0 ? whole : whole + "." + std::to_string(tenths % 10)) + " mm";
}

std::string WhyNothingCloses(int mostPieces, const ClosingOptions& options, const std::optional<NearestMiss>& nearest) {
    std::string why =
        "nothing closes it with " + (mostPieces == 1 ? "one piece" : "up to " + std::to_string(mostPieces) + " pieces");
    if (options.OwnedOnly) why += " of those that are owned and not used";
    if (options.MostRemoved > 0)
        why += ", nor with up to " + std::to_string(options.MostRemoved) + " of the track's taken out";
    if (!nearest) return why;
    if (nearest->Pieces.empty()) return why + "; it is " + Millimetres(nearest->Distance) + " short as it is";
    why += "; the nearest miss is " + Millimetres(nearest->Distance) + " short, with";
    for (const std::string& piece : nearest->Pieces)
        why += " " + piece;
    return why;
}

/// A chain's shapes whatever their order.
using Contents = std::array<std::uint8_t, MostShapes>;

Contents ContentsOf(const ShapeChain& chain) {
    Contents contents{};
    for (int place = 0; place < chain.Count(); ++place)
        ++contents[static_cast<std::size_t>(chain[place])];
    return contents;
}

/// Of the chains that hold the same pieces the one that is shown: which closes best, to a twentieth of a millimetre.
struct Representative {
    int Gap;
    ShapeChain Chain;

    auto operator<=>(const Representative&) const = default;
};
using ChainsByContents = std::map<Contents, Representative>;

class Closer {
public:
    Closer(const ClosingTables& tables, const Catalogue& catalogue, const Design& design, const Stock& stock,
           const TrackPlace& place, const ClosingOptions& options, const OpenEnds& ends, const LatticeGoal& goal,
           const JobWatch& watch)
        : catalogue_(catalogue), shapes_(tables.Shapes()), options_(options), ends_(ends),
          site_(catalogue, design, place),
          market_(catalogue, shapes_, stock, UsedBeside(catalogue, design.Circuit, place)), place_(place),
          watch_(watch), free_(tables, ends, goal, {options.Tolerance, Shapes(), &site_}),
          any_(tables, ends, goal, {options.Tolerance, Shapes(), nullptr}) {}

    std::vector<Suggestion> Run(int mostPieces) {
        std::vector<ChainsByContents> found(static_cast<std::size_t>(mostPieces) + 1);
        for (int count = 1; count <= mostPieces && !IsFull(); ++count) {
            watch_.Step(count - 1, mostPieces);
            auto& freeChains = found[static_cast<std::size_t>(count)];
            Gather(free_, count, freeChains, [&](const ShapeChain& chain) { return !free_.OverlapsItself(chain); });
            if (shortest_ == 0 && (!freeChains.empty() || HasAny(count))) shortest_ = count;
            Suggest(freeChains);
        }
        for (int count = std::max(1, shortest_); count <= mostPieces && shortest_ != 0 && !IsFull(); ++count) {
            const auto& freeChains = found[static_cast<std::size_t>(count)];
            ChainsByContents others;
            Gather(any_, count, others,
                   [&](const ShapeChain& chain) { return !freeChains.contains(ContentsOf(chain)); });
            Suggest(others);
        }
        return std::move(suggestions_);
    }

    /// The fewest pieces that close the track, 0 where none are known to.
    int Shortest() const { return shortest_; }

    /// The pieces that come nearest to the goal, free of faults if there are any.
    std::optional<NearestMiss> Nearest(int mostPieces) {
        auto nearest = Nearest(free_, mostPieces);
        return nearest ? nearest : Nearest(any_, mostPieces);
    }

private:
    bool IsFull() const { return static_cast<int>(suggestions_.size()) >= options_.Limit; }

    ShapeMask Shapes() const { return options_.OwnedOnly ? market_.OwnedShapes() : ~ShapeMask{0}; }

    TrackGap GapWith(const ShapeChain& chain) const {
        Pose pose = ends_.End;
        for (int place = 0; place < chain.Count(); ++place)
            pose = ExitOf(shapes_[chain[place]].Kind, pose);
        return GapBetween(ends_.Goal, pose);
    }

    /// Adds the chains of so many pieces that close the track and are good, one for all that hold the same pieces.
    template <typename IsGood>
    void Gather(ChainSearch& search, int count, ChainsByContents& chains, IsGood isGood) {
        search.ForEachChain(count, watch_, [&](const ShapeChain& chain) {
            const Contents contents = ContentsOf(chain);
            const auto known = chains.find(contents);
            if (known != chains.end() && known->second < Representative{0, chain}) return true;
            if (options_.OwnedOnly && known == chains.end() && !market_.CanSupply(chain)) return true;
            const TrackGap gap = GapWith(chain);
            if (!IsWithin(gap, options_.Tolerance)) return true;
            constexpr float grain = 0.005F; // cm
            const Representative shown{static_cast<int>(gap.Distance / grain), chain};
            if (known != chains.end() && known->second < shown) return true;
            if (isGood(chain)) chains.insert_or_assign(contents, shown);
            return true;
        });
    }

    bool HasAny(int count) {
        bool has = false;
        any_.ForEachChain(count, watch_, [&](const ShapeChain& chain) {
            has = (!options_.OwnedOnly || market_.CanSupply(chain)) && IsWithin(GapWith(chain), options_.Tolerance);
            return !has;
        });
        return has;
    }

    std::optional<NearestMiss> Nearest(ChainSearch& search, int mostPieces) {
        constexpr double farthest = 30;     // cm: beyond it a miss tells nothing
        constexpr double withTwoTables = 2; // there are so many chains that one comes nearer than that if any does
        std::optional<NearestMiss> nearest;
        const TrackGap asItIs = GapBetween(ends_.Goal, ends_.End);
        if (FitsTogether(ends_) && std::fabs(asItIs.Angle) <= ClosedAngle)
            nearest = NearestMiss{.Distance = asItIs.Distance};
        for (int count = 1; count <= mostPieces; ++count) {
            const double within = count <= ClosingTables::UsualLevel ? farthest : withTwoTables;
            search.SetTolerance(std::min(within, nearest ? double{nearest->Distance} : within));
            search.ForEachChain(count, watch_, [&](const ShapeChain& chain) {
                const TrackGap gap = GapWith(chain);
                if (nearest && gap.Distance >= nearest->Distance) return true;
                if (&search == &free_ && search.OverlapsItself(chain)) return true;
                nearest = NearestMiss{SuggestionOf(market_.OffersFor(chain).front()).Edit.Insert, gap.Distance};
                search.SetTolerance(std::min(within, double{gap.Distance}));
                return true;
            });
        }
        return nearest;
    }

    void Suggest(const ChainsByContents& chains) {
        for (const auto& [contents, shown] : chains) {
            for (const Offer& offer : market_.OffersFor(shown.Chain)) {
                if (offer.IsOwned || !options_.OwnedOnly) suggestions_.push_back(SuggestionOf(offer));
            }
        }
    }

    /// As the pieces lie, to the bit.
    Suggestion SuggestionOf(const Offer& offer) const {
        Suggestion suggestion{
            .Edit = {.At = place_.At, .Remove = place_.Remove}, .Price = offer.Price, .IsOwned = offer.IsOwned};
        std::vector<Ground> grounds;
        Pose pose = ends_.End;
        const int count = static_cast<int>(offer.Rows.size());
        Predecessor before{.IsNinco = ends_.EndSystem == 1};
        for (int place = 0; place < count; ++place) {
            const CatalogueEntry& piece = catalogue_[offer.Rows[static_cast<std::size_t>(place)]];
            const PiecePlacement placement = PlacePiece(piece.Kind, pose, before);
            const Ground& ground = grounds.emplace_back(GroundOf(placement));
            const Contact contact = site_.ContactOf(piece, ground);
            suggestion.IsOutside = suggestion.IsOutside || contact.IsOutside;
            suggestion.Overlaps = suggestion.Overlaps || contact.IsFault(place == 0, place == count - 1);
            for (std::size_t other = 0; other + 2 < grounds.size(); ++other)
                suggestion.Overlaps = suggestion.Overlaps || Overlaps(grounds[other], ground);
            suggestion.Edit.Insert.push_back(piece.Code);
            pose = placement.Exit;
            before = PredecessorOf(piece.Code, &piece);
        }
        suggestion.Gap = GapBetween(ends_.Goal, pose);
        return suggestion;
    }

    const Catalogue& catalogue_;
    const PieceShapes& shapes_;
    const ClosingOptions options_;
    const OpenEnds ends_;
    const Site site_;
    const Market market_;
    const TrackPlace place_;
    const JobWatch& watch_;
    ChainSearch free_, any_;
    int shortest_ = 0;
    std::vector<Suggestion> suggestions_;
};

/// Beyond so many pieces nothing comes among the suggestions, as there are enough better ones.
int MostWorthLaying(const std::vector<Suggestion>& mends, const ClosingOptions& options) {
    if (std::ranges::count_if(mends, &Suggestion::IsFree) < options.Limit) return MostNewPieces;
    const auto worst =
        std::ranges::max_element(mends, {}, [](const Suggestion& mend) { return mend.IsFree() ? mend.Count() : 0; });
    return std::max(1, worst->Count());
}

std::multiset<std::string> ContentsWith(const Track& track, const TrackEdit& edit) {
    Track changed = track;
    Apply(edit, changed);
    return {changed.ElementCodes.begin(), changed.ElementCodes.end()};
}

/// Of those that hold the same pieces in another order, what is laid behind the track is left.
void DropWhatHoldsTheSame(std::vector<Suggestion>& mends, const Track& track, const std::vector<Suggestion>& others) {
    std::set<std::multiset<std::string>> held;
    for (const Suggestion& other : others)
        held.insert(ContentsWith(track, other.Edit));
    std::erase_if(mends, [&](const Suggestion& mend) { return held.contains(ContentsWith(track, mend.Edit)); });
}

/// The fewest pieces that any of these lays, or `others` where that is known and less.
int Fewest(const std::vector<Suggestion>& mends, int others) {
    int fewest = others > 0 ? others : MostNewPieces + 1;
    for (const Suggestion& mend : mends)
        fewest = std::min(fewest, mend.Count());
    return fewest;
}

/// Puts the best first, and leaves so many. `fewest` pieces are those of the shortest.
void Order(const Catalogue& catalogue, std::vector<Suggestion>& suggestions, int limit, int fewest) {
    for (Suggestion& suggestion : suggestions)
        suggestion.IsShortest = suggestion.Count() == fewest;
    std::ranges::sort(suggestions, {}, [&](const Suggestion& suggestion) {
        return std::tuple(RankOf(catalogue, suggestion), suggestion.Edit.Remove, suggestion.Edit.At);
    });
    if (suggestions.size() > static_cast<std::size_t>(limit)) suggestions.resize(static_cast<std::size_t>(limit));
}

} // namespace

void Apply(const TrackEdit& edit, Track& track) {
    const auto at = track.ElementCodes.begin() + edit.At;
    const auto behind = track.ElementCodes.erase(at, at + edit.Remove);
    track.ElementCodes.insert(behind, edit.Insert.begin(), edit.Insert.end());
}

Closings CloseTrack(const ClosingTables& tables, const Catalogue& catalogue, const Design& design, const Stock& stock,
                    int track, const ClosingOptions& options, const JobWatch& watch) {
    const Track& open = design.Circuit.Tracks[static_cast<std::size_t>(track)];
    const int size = open.ElementLastIndex() + 1;
    if (size == 0) return {.WhyNone = "the track is empty"};
    if (IsWithin(GapOf(catalogue, open), options.Tolerance)) return {.WhyNone = "the track is closed"};
    const auto ends = TrackEnds(catalogue, open).ToClose(size, 0);
    const auto goal = ends ? GoalOnLattice(*ends) : std::nullopt;
    if (!goal) return {.WhyNone = "no piece turns by so little as the track's end is turned against its start"};

    std::vector<Suggestion> mends;
    if (options.MostRemoved > 0) mends = MendTrack(tables, catalogue, design, stock, track, options, watch);
    const int room = MaxElements - size;
    const int mostPieces = std::min({options.MostPieces, room, MostWorthLaying(mends, options)});
    Closer closer(tables, catalogue, design, stock, {track, size, 0}, options, *ends, *goal, watch);
    Closings closings{.Suggestions = closer.Run(mostPieces)};
    const int fewest = Fewest(mends, closer.Shortest());
    DropWhatHoldsTheSame(mends, open, closings.Suggestions);
    closings.Suggestions.insert(closings.Suggestions.end(), mends.begin(), mends.end());
    Order(catalogue, closings.Suggestions, options.Limit, fewest);
    if (!closings.Suggestions.empty()) return closings;
    closings.Nearest = closer.Nearest(mostPieces);
    closings.WhyNone = room == 0 ? "the track is full" : WhyNothingCloses(mostPieces, options, closings.Nearest);
    return closings;
}

std::vector<Suggestion> ReplaceRun(const ClosingTables& tables, const Catalogue& catalogue, const Design& design,
                                   const Stock& stock, const TrackPlace& place, const ClosingOptions& options,
                                   const JobWatch& watch) {
    const Track& track = design.Circuit.Tracks[static_cast<std::size_t>(place.Track)];
    const auto ends = TrackEnds(catalogue, track).InPlace(place.At, place.Remove);
    const auto goal = ends ? GoalOnLattice(*ends) : std::nullopt;
    if (!goal) return {};
    const int room = MaxElements - (track.ElementLastIndex() + 1 - place.Remove);
    ClosingOptions oneMore = options; // for the pieces that lie there
    ++oneMore.Limit;
    Closer closer(tables, catalogue, design, stock, place, oneMore, *ends, *goal, watch);
    std::vector<Suggestion> suggestions = closer.Run(std::min(options.MostPieces, room));
    const std::multiset<std::string> now(track.ElementCodes.begin(), track.ElementCodes.end());
    std::erase_if(suggestions,
                  [&](const Suggestion& suggestion) { return ContentsWith(track, suggestion.Edit) == now; });
    Order(catalogue, suggestions, options.Limit, closer.Shortest());
    return suggestions;
}

} // namespace pistaro

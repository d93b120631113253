#include "search/closing.h"

#include "layout/overlap.h"
#include "search/chain_search.h"
#include "search/market.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace pistaro {

namespace {

bool IsClosed(const TrackGap& gap, double tolerance) {
    return double{gap.Distance} <= tolerance && std::fabs(gap.Angle) <= static_cast<float>(ClosedAngle);
}

/// Whether the two ends belong together as they are.
bool FitsWithout(const OpenEnds& ends) {
    return ends.EndSystem == ends.GoalSystem && !(ends.AfterAdapter && ends.BeforeAdapter) &&
           std::fabs(GapBetween(ends.Goal, ends.End).Angle) <= static_cast<float>(ClosedAngle);
}

std::string Millimetres(float centimetres) {
    const long tenths = std::lround(double{centimetres} * 100);
    const std::string whole = std::to_string(tenths / 10);
    return (tenths % 10 == 0 ? whole : whole + "." + std::to_string(tenths % 10)) + " mm";
}

std::string WhyNothingCloses(int mostPieces, bool ownedOnly, const std::optional<NearestMiss>& nearest) {
    std::string why =
        "nothing closes it with " + (mostPieces == 1 ? "one piece" : "up to " + std::to_string(mostPieces) + " pieces");
    if (ownedOnly) why += " of those that are owned and not used";
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
    Closer(const ClosingTables& tables, const Catalogue& catalogue, const Design& design, const Stock& stock, int track,
           const ClosingOptions& options, const OpenEnds& ends, const LatticeGoal& goal, const JobWatch& watch)
        : catalogue_(catalogue), shapes_(tables.Shapes()), options_(options), ends_(ends),
          site_(catalogue, design, track), market_(catalogue, shapes_, stock, CountUsed(catalogue, design.Circuit)),
          at_(design.Circuit.Tracks[static_cast<std::size_t>(track)].ElementLastIndex() + 1), watch_(watch),
          free_(tables, ends, goal, {options.Tolerance, Shapes(), &site_}),
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
        Sort();
        return std::move(suggestions_);
    }

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
            if (!IsClosed(gap, options_.Tolerance)) return true;
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
            has = (!options_.OwnedOnly || market_.CanSupply(chain)) && IsClosed(GapWith(chain), options_.Tolerance);
            return !has;
        });
        return has;
    }

    std::optional<NearestMiss> Nearest(ChainSearch& search, int mostPieces) {
        constexpr double farthest = 30;     // cm: beyond it a miss tells nothing
        constexpr double withTwoTables = 2; // there are so many chains that one comes nearer than that if any does
        std::optional<NearestMiss> nearest;
        if (FitsWithout(ends_)) nearest = NearestMiss{.Distance = GapBetween(ends_.Goal, ends_.End).Distance};
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
        Suggestion suggestion{.Edit = {.At = at_}, .Price = offer.Price, .IsOwned = offer.IsOwned};
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

    void Sort() {
        const auto rank = [&](const Suggestion& suggestion) {
            std::vector<int> rows;
            for (const std::string& code : suggestion.Edit.Insert)
                rows.push_back(catalogue_.FindRow(code));
            std::vector<int> sorted = rows;
            std::ranges::sort(sorted);
            return std::tuple(!suggestion.IsFree(), suggestion.Count(), suggestion.Price, !suggestion.IsOwned, sorted,
                              rows);
        };
        std::ranges::sort(suggestions_, {}, rank);
        if (IsFull()) suggestions_.resize(static_cast<std::size_t>(options_.Limit));
        for (Suggestion& suggestion : suggestions_)
            suggestion.IsShortest = suggestion.Count() == shortest_;
    }

    const Catalogue& catalogue_;
    const PieceShapes& shapes_;
    const ClosingOptions options_;
    const OpenEnds ends_;
    const Site site_;
    const Market market_;
    const int at_;
    const JobWatch& watch_;
    ChainSearch free_, any_;
    int shortest_ = 0; ///< the fewest pieces that close the track, 0 while none are known
    std::vector<Suggestion> suggestions_;
};

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
    if (IsClosed(GapOf(catalogue, open), options.Tolerance)) return {.WhyNone = "the track is closed"};
    const int mostPieces = std::min(options.MostPieces, MaxElements - size);
    if (mostPieces == 0) return {.WhyNone = "the track is full"};
    const auto ends = OpenEndsOf(catalogue, open, size, 0);
    const auto goal = ends ? GoalOnLattice(*ends) : std::nullopt;
    if (!goal) return {.WhyNone = "no piece turns by so little as the track's end is turned against its start"};
    Closer closer(tables, catalogue, design, stock, track, options, *ends, *goal, watch);
    Closings closings{.Suggestions = closer.Run(mostPieces)};
    if (!closings.Suggestions.empty()) return closings;
    closings.Nearest = closer.Nearest(mostPieces);
    closings.WhyNone = WhyNothingCloses(mostPieces, options.OwnedOnly, closings.Nearest);
    return closings;
}

} // namespace pistaro

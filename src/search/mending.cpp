#include "search/mending.h"

#include "search/chain_search.h"
#include "search/market.h"
#include "search/ranking.h"
#include "search/track_faults.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace pistaro {

namespace {

/// A way to mend the track of which nobody has looked yet how it lies.
struct Mend {
    Suggestion Change;
    std::vector<int> Contents; ///< the whole track's rows, sorted
};

class Mender {
public:
    Mender(const ClosingTables& tables, const Catalogue& catalogue, const Design& design, const Stock& stock, int track,
           const ClosingOptions& options, const JobWatch& watch)
        : tables_(tables), catalogue_(catalogue), design_(design), stock_(stock),
          track_(design.Circuit.Tracks[static_cast<std::size_t>(track)]), options_(options), watch_(watch),
          ends_(catalogue, track_), number_(track), checks_(catalogue, design, track) {}

    std::vector<Suggestion> Run() {
        const int size = track_.ElementLastIndex() + 1;
        for (int remove = 0; remove <= options_.MostRemoved; ++remove) {
            for (int at = 0; at + remove <= size; ++at) {
                // Laying pieces behind the last one is what closing does.
                if (remove > 0 || at < size) TryAt(at, remove);
            }
        }
        return Best();
    }

private:
    void TryAt(int at, int remove) {
        const auto ends = ends_.ToClose(at, remove);
        const auto goal = ends ? GoalOnLattice(*ends) : std::nullopt;
        if (!goal) return;
        if (remove > 0 && FitsTogether(*ends) && IsWithin(GapBetween(ends->Goal, ends->End), options_.Tolerance))
            Add(at, remove, ShapeChain());
        ChainSearch search(tables_, *ends, *goal, {.Tolerance = options_.Tolerance});
        const int room = MaxElements - (track_.ElementLastIndex() + 1 - remove);
        for (int count = 1; count <= std::min({remove + 1, options_.MostPieces, room}); ++count) {
            search.ForEachChain(count, watch_, [&](const ShapeChain& chain) { return Add(at, remove, chain), true; });
        }
    }

    void Add(int at, int remove, const ShapeChain& chain) {
        const Market market(catalogue_, tables_.Shapes(), stock_,
                            UsedBeside(catalogue_, design_.Circuit, {number_, at, remove}));
        for (const Offer& offer : market.OffersFor(chain)) {
            if (options_.OwnedOnly && !offer.IsOwned) continue;
            Mend mend;
            mend.Change.IsMend = true;
            mend.Change.Edit = {.At = at, .Remove = remove};
            for (const int row : offer.Rows)
                mend.Change.Edit.Insert.push_back(catalogue_[row].Code);
            mend.Change.Price = offer.Price;
            mend.Change.IsOwned = offer.IsOwned;
            const Track mended = Mended(mend.Change);
            for (const std::string& code : mended.ElementCodes)
                mend.Contents.push_back(catalogue_.FindRow(code));
            std::ranges::sort(mend.Contents);
            mends_.push_back(std::move(mend));
        }
    }

    Track Mended(const Suggestion& change) const {
        Track track = track_;
        Apply(change.Edit, track);
        return track;
    }

    /// Looks at the mends from the best on, until enough are free of faults; of those that hold the same pieces it
    /// takes the first that is.
    std::vector<Suggestion> Best() {
        std::ranges::sort(mends_, {}, [&](const Mend& mend) {
            return std::tuple(RankOf(catalogue_, mend.Change), mend.Change.Edit.Remove, mend.Change.Edit.At);
        });
        std::map<std::vector<int>, Suggestion> taken;
        int freeOnes = 0;
        for (Mend& mend : mends_) {
            if (freeOnes >= options_.Limit) break;
            ThrowIfStopped(watch_.Stop);
            const auto known = taken.find(mend.Contents);
            if (known != taken.end() && known->second.IsFree()) continue;
            Suggestion& change = mend.Change;
            const Track mended = Mended(change);
            change.Gap = GapOf(catalogue_, mended);
            if (!IsWithin(change.Gap, options_.Tolerance)) continue;
            const TrackFaults faults = checks_.FaultsOf(mended);
            change.Overlaps = faults.Overlaps;
            change.IsOutside = faults.IsOutside;
            if (change.IsFree()) ++freeOnes;
            if (known == taken.end() || change.IsFree()) taken.insert_or_assign(mend.Contents, change);
        }
        std::vector<Suggestion> best;
        best.reserve(taken.size());
        for (auto& [contents, suggestion] : taken)
            best.push_back(std::move(suggestion));
        return best;
    }

    const ClosingTables& tables_;
    const Catalogue& catalogue_;
    const Design& design_;
    const Stock& stock_;
    const Track& track_;
    const ClosingOptions options_;
    const JobWatch& watch_;
    const TrackEnds ends_;
    const int number_;
    const TrackChecks checks_;
    std::vector<Mend> mends_;
};

} // namespace

std::vector<Suggestion> MendTrack(const ClosingTables& tables, const Catalogue& catalogue, const Design& design,
                                  const Stock& stock, int track, const ClosingOptions& options, const JobWatch& watch) {
    return Mender(tables, catalogue, design, stock, track, options, watch).Run();
}

} // namespace pistaro

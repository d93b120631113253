#include "search/special_pieces.h"

#include "layout/built_lanes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace pistaro {

namespace {

bool IsStartOrCounter(const CatalogueEntry& piece) {
    return piece.Kind.Marks == PieceMarks::LapCounter || piece.Kind.Marks == PieceMarks::ReverseStart;
}

/// How many of a special product's pieces may stand in one circuit, wherever they stand.
int Placeable(const CatalogueEntry& piece, int owned) {
    if (piece.IsChicaneExtension()) return 0;
    if (piece.LaneChange || piece.IsChicane()) return owned / 2 * 2;
    return IsStartOrCounter(piece) ? std::min(owned, 1) : owned;
}

class SpecialPlaces {
public:
    SpecialPlaces(const Catalogue& catalogue, const PieceBox& box, std::vector<int>& rows, std::size_t kept)
        : catalogue_(catalogue), left_(box.Counts), rows_(rows), kept_(kept) {
        for (std::size_t place = 0; place < kept; ++place) {
            const CatalogueEntry& piece = catalogue[rows[place]];
            if (!piece.IsBasic()) --Left(piece.StockIndex);
        }
    }

    void Fill() {
        while (PlaceChicane()) {
        }
        for (int head = 0; head < catalogue_.Count(); ++head) {
            if (catalogue_.IsHeadRow(head) && catalogue_[head].LaneChange) PlaceChangeOvers(head);
        }
        for (int head = 0; head < catalogue_.Count(); ++head) {
            const CatalogueEntry& piece = catalogue_[head];
            if (!catalogue_.IsHeadRow(head) || piece.IsBasic() || piece.LaneChange || piece.IsChicane()) continue;
            PlaceFree(head, Placeable(piece, Left(head)));
        }
    }

    /// Whether the plain pieces that are left in the circuit are in the box.
    bool HasPlainOnes() {
        return std::ranges::all_of(
            rows_, [&](int row) { return !catalogue_[row].IsBasic() || --Left(catalogue_[row].StockIndex) >= 0; });
    }

private:
    int& Left(int head) { return left_[static_cast<std::size_t>(head)]; }
    int& At(std::size_t place) { return rows_[place % rows_.size()]; }

    /// Whether a plain piece stands there whose place the special one can take.
    bool Fits(int special, std::size_t place) {
        if (place % rows_.size() < kept_) return false;
        const CatalogueEntry& piece = catalogue_[At(place)];
        return piece.IsBasic() && piece.StockIndex == catalogue_[special].ShapeIndex &&
               Hand(piece.Code) == Hand(catalogue_[special].Code);
    }

    void Put(int special, std::size_t place) {
        At(place) = special;
        --Left(catalogue_[special].StockIndex);
    }

    /// The chicane extension that could stand there; -1 when there is none.
    int ExtensionFor(std::size_t place) {
        for (int row = 0; row < catalogue_.Count(); ++row) {
            if (catalogue_[row].IsChicaneExtension() && Left(catalogue_[row].StockIndex) > 0 && Fits(row, place))
                return row;
        }
        return -1;
    }

    /// Puts two chicanes where they can stand with the most extensions between them.
    bool PlaceChicane() {
        int chicane = -1;
        for (int row = 0; row < catalogue_.Count(); ++row) {
            if (catalogue_[row].IsChicane() && Left(catalogue_[row].StockIndex) >= 2) chicane = row;
        }
        if (chicane < 0) return false;
        const std::vector<int> kept = left_;
        std::size_t best = 0, bestLength = 0;
        for (std::size_t first = 0; first < rows_.size(); ++first) {
            if (!Fits(chicane, first)) continue;
            left_ = kept;
            for (std::size_t last = first + 1; last < first + rows_.size(); ++last) {
                if (Fits(chicane, last) && last - first > bestLength) {
                    best = first;
                    bestLength = last - first;
                }
                const int extension = ExtensionFor(last);
                if (extension < 0) break;
                --Left(catalogue_[extension].StockIndex);
            }
        }
        left_ = kept;
        if (bestLength == 0) return false;
        Put(chicane, best);
        for (std::size_t place = best + 1; place < best + bestLength; ++place)
            Put(ExtensionFor(place), place);
        Put(chicane, best + bestLength);
        return true;
    }

    /// By how much the lane that begins on the left is longer, piece by piece; cm.
    std::vector<double> LaneDifferences() {
        Track track;
        for (const int row : rows_)
            track.ElementCodes.push_back(catalogue_[row].Code);
        std::vector<double> differences;
        for (const BuiltPiece& piece : LanesAsBuilt(catalogue_, track).Pieces)
            differences.push_back(piece.Lengths[0] - piece.Lengths[1]);
        return differences;
    }

    static double SumOf(const std::vector<double>& differences) {
        return std::accumulate(differences.begin(), differences.end(), 0.0);
    }

    /// The partner of one that the kept part leaves alone, where the lanes' lengths then differ least.
    void PlacePartner(int special) {
        double least = std::numeric_limits<double>::max();
        std::size_t best = rows_.size();
        for (std::size_t place = 0; place < rows_.size(); ++place) {
            if (!Fits(special, place)) continue;
            const int plain = std::exchange(rows_[place], special);
            const double apart = std::abs(SumOf(LaneDifferences()));
            rows_[place] = plain;
            constexpr double better = 1e-6; // rounding shall not decide
            if (apart >= least - better) continue;
            least = apart;
            best = place;
        }
        if (best < rows_.size()) Put(special, best);
    }

    /// Pair by pair, where the lanes' lengths then differ least.
    void PlaceChangeOvers(int special) {
        const auto isOne = [&](int row) { return catalogue_[row].StockIndex == special; };
        const auto lone = std::count_if(rows_.begin(), rows_.begin() + static_cast<std::ptrdiff_t>(kept_), isOne) % 2;
        if (lone > 0 && Left(special) > 0) PlacePartner(special);
        for (int pairs = Left(special) / 2; pairs > 0; --pairs) {
            const std::vector<double> differences = LaneDifferences();
            const double whole = SumOf(differences);
            double least = std::numeric_limits<double>::max();
            std::size_t from = 0, to = 0;
            for (std::size_t first = 0; first < rows_.size(); ++first) {
                if (!Fits(special, first)) continue;
                double between = 0;
                for (std::size_t last = first + 1; last < rows_.size(); ++last) {
                    constexpr double better = 1e-6; // rounding shall not decide
                    if (Fits(special, last) && std::abs(whole - 2 * between) < least - better) {
                        least = std::abs(whole - 2 * between);
                        from = first;
                        to = last;
                    }
                    between += differences[last];
                }
            }
            if (from == to) return;
            Put(special, from);
            Put(special, to);
        }
    }

    /// Spread over the places that fit.
    void PlaceFree(int special, int count) {
        std::vector<std::size_t> places;
        for (std::size_t place = 0; place < rows_.size(); ++place) {
            if (Fits(special, place)) places.push_back(place);
        }
        const std::size_t put = std::min(places.size(), static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < put; ++i)
            Put(special, places[i * places.size() / put]);
    }

    const Catalogue& catalogue_;
    std::vector<int> left_;
    std::vector<int>& rows_;
    const std::size_t kept_; ///< the first pieces, which stay
};

} // namespace

ShapeCounts ShapesOf(const Catalogue& catalogue, const PieceBox& box) {
    ShapeCounts shapes(box.Counts.size());
    for (int row = 0; row < catalogue.Count(); ++row) {
        if (!catalogue.IsHeadRow(row)) continue;
        const CatalogueEntry& piece = catalogue[row];
        const int owned = box.Counts[static_cast<std::size_t>(row)];
        shapes[static_cast<std::size_t>(piece.ShapeIndex)] += piece.IsBasic() ? owned : Placeable(piece, owned);
    }
    return shapes;
}

std::optional<std::vector<int>> WithSpecialPieces(const Catalogue& catalogue, const PieceBox& box,
                                                  std::vector<int> rows, std::size_t kept) {
    SpecialPlaces places(catalogue, box, rows, kept);
    places.Fill();
    if (!places.HasPlainOnes()) return std::nullopt;
    return rows;
}

} // namespace pistaro

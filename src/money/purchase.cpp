// Branch and bound over how many of each set are bought; single pieces make up the rest. The bound is the linear
// program's, in which sets come in fractions: its dual values each missing piece at no more than it costs alone, and
// each set's pieces at no more than the set.
#include "money/purchase.h"

#include "money/packing_program.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pistaro {

namespace {

constexpr Cents Unaffordable = std::numeric_limits<Cents>::max() / 4;

std::size_t At(int row) { return static_cast<std::size_t>(row); }

int ProductOf(const Catalogue& catalogue, const CatalogueEntry& piece) {
    return catalogue.FindHeadRow(ProductCode(catalogue[piece.StockIndex].Code));
}

/// Owned pieces less used ones, by head row.
std::vector<int> Left(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit) {
    std::vector<int> left = CountUsedByProduct(catalogue, circuit);
    for (int& count : left)
        count = -count;
    for (const int row : catalogue.ProductRows())
        left[At(row)] += stock[row].OwnedCount;
    return left;
}

/// What is to be bought, with products that matter in a row of their own.
struct Problem {
    std::vector<int> Rows;             ///< head rows of the missing products
    std::vector<int> Need;             ///< of each
    std::vector<Cents> Single;         ///< the price of one piece of each; 0 where it is not sold alone
    std::vector<std::vector<int>> Box; ///< by set: pieces of each
    std::vector<Cents> Price;          ///< by set
};

/// A purchase but for the single pieces.
using SetCounts = std::vector<int>;

class Search {
public:
    Search(const Problem& problem, long effort, const JobWatch& watch)
        : problem_(problem), watch_(watch), effort_(effort), best_(problem.Price.size(), 0), bestCost_(CostOf(best_)) {}

    void Run() {
        SetCounts counts(problem_.Price.size(), -1);
        bound_ = std::min(Explore(counts, Relax(counts)), bestCost_);
    }

    const SetCounts& Best() const { return best_; }
    Cents Bound() const { return bound_; }

private:
    /// What is needed beyond the fixed sets, and what those cost.
    struct Rest {
        std::vector<int> Need;
        Cents Spent = 0;
    };

    Rest RestOf(const SetCounts& counts) const {
        Rest rest{problem_.Need, 0};
        for (std::size_t set = 0; set < counts.size(); ++set) {
            if (counts[set] <= 0) continue;
            rest.Spent += problem_.Price[set] * counts[set];
            for (std::size_t product = 0; product < rest.Need.size(); ++product)
                rest.Need[product] = std::max(0, rest.Need[product] - problem_.Box[set][product] * counts[set]);
        }
        return rest;
    }

    /// What a purchase of these sets costs with the single pieces that it lacks.
    Cents CostOf(const SetCounts& counts) const {
        const Rest rest = RestOf(counts);
        Cents cost = rest.Spent;
        for (std::size_t product = 0; product < rest.Need.size(); ++product) {
            if (rest.Need[product] > 0 && problem_.Single[product] == 0) return Unaffordable;
            cost += problem_.Single[product] * rest.Need[product];
        }
        return cost;
    }

    void Try(const SetCounts& counts) {
        const Cents cost = CostOf(counts);
        if (cost >= bestCost_) return;
        best_ = counts;
        bestCost_ = cost;
    }

    struct Relaxed {
        Cents Bound = 0;
        std::vector<double> Counts; ///< of the sets that are not fixed, 0 of the others
    };

    /// The least that this can cost when the sets that are not fixed come in fractions.
    Relaxed Relax(const SetCounts& counts) const {
        const Rest rest = RestOf(counts);
        PackingProgram program;
        std::vector<std::size_t> setOfRow;
        program.Gain.assign(rest.Need.begin(), rest.Need.end());
        for (std::size_t set = 0; set < counts.size(); ++set) {
            if (counts[set] >= 0) continue;
            setOfRow.push_back(set);
            program.Rows.emplace_back(problem_.Box[set].begin(), problem_.Box[set].end());
            program.Limits.push_back(static_cast<double>(problem_.Price[set]));
        }
        for (std::size_t product = 0; product < rest.Need.size(); ++product) {
            if (problem_.Single[product] == 0 && !IsBoxed(counts, product)) {
                if (rest.Need[product] > 0) return {Unaffordable, {}};
                program.Gain[product] = 0;
            }
            if (problem_.Single[product] == 0) continue;
            program.Rows.emplace_back(rest.Need.size(), 0.0);
            program.Rows.back()[product] = 1;
            program.Limits.push_back(static_cast<double>(problem_.Single[product]));
        }
        const PackingSolution solution = Solve(program);
        constexpr double rounding = 1e-4; // of a cent: far more than the solution's own
        Relaxed relaxed{rest.Spent + static_cast<Cents>(std::ceil(solution.Value - rounding)),
                        std::vector<double>(counts.size(), 0.0)};
        for (std::size_t row = 0; row < setOfRow.size(); ++row)
            relaxed.Counts[setOfRow[row]] = solution.Multipliers[row];
        return relaxed;
    }

    bool IsBoxed(const SetCounts& counts, std::size_t product) const {
        for (std::size_t set = 0; set < counts.size(); ++set) {
            if (counts[set] < 0 && problem_.Box[set][product] > 0) return true;
        }
        return false;
    }

    /// Tries what a relaxed answer suggests: each fraction up, and each down.
    void TryRounded(const SetCounts& counts, const Relaxed& relaxed) {
        for (const bool up : {true, false}) {
            SetCounts rounded = counts;
            for (std::size_t set = 0; set < counts.size(); ++set) {
                const double count = relaxed.Counts[set];
                if (counts[set] < 0)
                    rounded[set] = static_cast<int>(up ? std::ceil(count - 1e-6) : std::floor(count + 1e-6));
            }
            Try(rounded);
        }
    }

    /// Finds all purchases with these fixed counts that are cheaper than the best; gives a bound of what they cost.
    Cents Explore(SetCounts& counts, const Relaxed& relaxed) {
        ThrowIfStopped(watch_.Stop);
        if (relaxed.Bound >= bestCost_) return relaxed.Bound;
        TryRounded(counts, relaxed);
        const std::size_t set = MostBroken(relaxed);
        const bool isWhole = set == counts.size(); // then it has been tried
        if (isWhole || relaxed.Bound >= bestCost_ || --effort_ < 0) return relaxed.Bound;
        const Cents bound = ExploreCounts(counts, set, relaxed.Counts[set]);
        counts[set] = -1;
        return std::max(bound, relaxed.Bound);
    }

    /// Fixes one set's count to each number. Away from the relaxed one the bound only grows, so that each way ends.
    Cents ExploreCounts(SetCounts& counts, std::size_t set, double around) {
        const int below = static_cast<int>(std::floor(around));
        const int most = MostUseful(set);
        Cents bound = Unaffordable;
        for (const int step : {1, -1}) {
            for (int count = step < 0 ? below : below + 1; count >= 0 && count <= most; count += step) {
                counts[set] = count;
                const Relaxed relaxed = Relax(counts);
                bound = std::min(bound, Explore(counts, relaxed));
                if (effort_ < 0) return 0;
                if (relaxed.Bound >= bestCost_) break;
            }
        }
        return bound;
    }

    /// So many of a set hold all that is needed of what is in it.
    int MostUseful(std::size_t set) const {
        int most = 0;
        for (std::size_t product = 0; product < problem_.Need.size(); ++product) {
            const int each = problem_.Box[set][product];
            if (each > 0) most = std::max(most, (problem_.Need[product] + each - 1) / each);
        }
        return most;
    }

    /// The set whose relaxed count is furthest from a whole number, or one beyond the last.
    static std::size_t MostBroken(const Relaxed& relaxed) {
        std::size_t most = relaxed.Counts.size();
        double distance = 1e-6;
        for (std::size_t set = 0; set < relaxed.Counts.size(); ++set) {
            const double broken = std::fabs(relaxed.Counts[set] - std::round(relaxed.Counts[set]));
            if (broken <= distance) continue;
            most = set;
            distance = broken;
        }
        return most;
    }

    const Problem& problem_;
    const JobWatch& watch_;
    long effort_;
    SetCounts best_;
    Cents bestCost_;
    Cents bound_ = 0;
};

Problem ProblemOf(const std::vector<int>& missing, const Stock& prices, const BoxedSets& sets, Purchase& purchase) {
    Problem problem;
    for (std::size_t row = 0; row < missing.size(); ++row) {
        if (missing[row] <= 0) continue;
        const int head = static_cast<int>(row);
        const Cents price = std::max<Cents>(0, CentsOf(prices[head].Price));
        const bool boxed = std::ranges::any_of(sets, [&](const BoxedSet& set) {
            const auto found = set.Pieces.find(head);
            return found != set.Pieces.end() && found->second > 0;
        });
        if (price == 0 && !boxed) {
            purchase.NotSold[row] = missing[row];
            continue;
        }
        problem.Rows.push_back(head);
        problem.Need.push_back(missing[row]);
        problem.Single.push_back(price);
    }
    for (const BoxedSet& set : sets) {
        problem.Price.push_back(set.Price);
        problem.Box.emplace_back();
        for (const int head : problem.Rows) {
            const auto found = set.Pieces.find(head);
            problem.Box.back().push_back(found == set.Pieces.end() ? 0 : found->second);
        }
    }
    return problem;
}

} // namespace

std::vector<int> CountUsedByProduct(const Catalogue& catalogue, const Circuit& circuit) {
    std::vector<int> products(At(catalogue.Count()));
    const UsedCounts used = CountUsed(catalogue, circuit);
    for (int row = 0; row < catalogue.Count(); ++row)
        if (used[At(row)] > 0) products[At(ProductOf(catalogue, catalogue[row]))] += used[At(row)];
    return products;
}

std::vector<int> MissingPieces(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit) {
    std::vector<int> missing = Left(catalogue, stock, circuit);
    for (int& count : missing)
        count = std::max(0, -count);
    return missing;
}

std::vector<int> UnusedPieces(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit) {
    std::vector<int> unused = Left(catalogue, stock, circuit);
    for (int& count : unused)
        count = std::max(0, count);
    return unused;
}

Purchase CheapestPurchase(const std::vector<int>& missing, const Stock& prices, const BoxedSets& sets,
                          const JobWatch& watch) {
    Purchase purchase;
    purchase.Singles = purchase.Surplus = purchase.NotSold = std::vector<int>(missing.size());
    const Problem problem = ProblemOf(missing, prices, sets, purchase);
    constexpr long effortBeyond = 4000;
    const bool isProven = sets.size() <= static_cast<std::size_t>(MostProvenSets);
    Search search(problem, isProven ? std::numeric_limits<long>::max() : effortBeyond, watch);
    search.Run();

    purchase.Sets = search.Best();
    std::vector<int> bought(missing.size());
    for (std::size_t set = 0; set < sets.size(); ++set) {
        purchase.Total += sets[set].Price * purchase.Sets[set];
        for (const auto& [row, count] : sets[set].Pieces)
            bought[At(row)] += count * purchase.Sets[set];
    }
    for (std::size_t row = 0; row < missing.size(); ++row) {
        purchase.Surplus[row] = std::max(0, bought[row] - missing[row]);
        purchase.Singles[row] = std::max(0, missing[row] - bought[row] - purchase.NotSold[row]);
        purchase.Total += CentsOf(prices[static_cast<int>(row)].Price) * purchase.Singles[row];
    }
    purchase.Bound = std::min(search.Bound(), purchase.Total);
    return purchase;
}

} // namespace pistaro

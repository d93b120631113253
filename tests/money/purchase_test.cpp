// The cheapest purchase: by hand, against trying everything, and with many sets.
#include "money/purchase.h"

#include "support/chain.h"
#include "support/stock.h"

#include <gmock/gmock.h>

#include <random>

namespace pistaro {
namespace {

using testing::ElementsAre;

/// Three products in rows 0 to 2.
Stock Prices(const std::vector<Cents>& cents) {
    Stock stock;
    for (std::size_t row = 0; row < cents.size(); ++row)
        stock.Of(static_cast<int>(row)).Price = static_cast<float>(cents[row]) / 100;
    return stock;
}

TEST(Purchase, IsOfSinglePiecesWithoutSets) {
    const Purchase purchase = CheapestPurchase({2, 0, 1}, Prices({350, 100, 499}), {});

    EXPECT_THAT(purchase.Singles, ElementsAre(2, 0, 1));
    EXPECT_EQ(purchase.Total, 1199);
    EXPECT_TRUE(purchase.IsProven());
}

TEST(Purchase, TakesASetThatIsCheaperThanItsPieces) {
    const BoxedSets sets{{"pair", 600, {{0, 2}}}, {"dear", 900, {{0, 2}, {1, 1}}}};

    const Purchase purchase = CheapestPurchase({5, 1, 0}, Prices({350, 100, 0}), sets);

    EXPECT_THAT(purchase.Sets, ElementsAre(2, 0));
    EXPECT_THAT(purchase.Singles, ElementsAre(1, 1, 0));
    EXPECT_EQ(purchase.Total, 1650);
    EXPECT_TRUE(purchase.IsProven());
}

TEST(Purchase, TellsWhatASetHoldsBeyondTheNeed) {
    const Purchase purchase = CheapestPurchase({3, 0, 0}, Prices({350, 0, 0}), {{"box", 700, {{0, 4}, {2, 1}}}});

    EXPECT_THAT(purchase.Sets, ElementsAre(1));
    EXPECT_THAT(purchase.Surplus, ElementsAre(1, 0, 1));
}

TEST(Purchase, TakesASetForWhatIsNotSoldAlone) {
    const Purchase purchase = CheapestPurchase({1, 1, 3}, Prices({100, 0, 0}), {{"box", 5000, {{1, 1}}}});

    EXPECT_THAT(purchase.Sets, ElementsAre(1));
    EXPECT_THAT(purchase.NotSold, ElementsAre(0, 0, 3)) << "in no set and without a price";
    EXPECT_EQ(purchase.Total, 5100);
}

TEST(Purchase, OfNothingCostsNothing) {
    const Purchase purchase =
        CheapestPurchase({0, 0, 0}, Prices({1, 1, 1}), {{"box", 5, {{0, 1}}}, {"free", 0, {{0, 1}}}});

    EXPECT_EQ(purchase.Total, 0);
    EXPECT_TRUE(purchase.IsProven());
}

/// The least that any numbers of sets, from the n-th on, cost with the single pieces that they lack.
Cents Cheapest(std::vector<int> need, const std::vector<Cents>& single, const BoxedSets& sets, std::size_t set) {
    if (set == sets.size()) {
        Cents cost = 0;
        for (std::size_t row = 0; row < need.size(); ++row) {
            if (need[row] > 0 && single[row] == 0) return 1'000'000'000;
            cost += std::max(0, need[row]) * single[row];
        }
        return cost;
    }
    Cents best = 1'000'000'000;
    for (int count = 0; count <= 7; ++count) {
        best = std::min(best, sets[set].Price * count + Cheapest(need, single, sets, set + 1));
        for (const auto& [row, pieces] : sets[set].Pieces)
            need[static_cast<std::size_t>(row)] -= pieces;
    }
    return best;
}

TEST(Purchase, EqualsTryingEverythingOn500SmallCases) {
    std::mt19937 random(11);
    const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    int withSets = 0;
    for (int round = 0; round < 500; ++round) {
        std::vector<int> missing;
        std::vector<Cents> single;
        for (int row = 0; row < 4; ++row) {
            missing.push_back(below(8));
            single.push_back(100 + below(900));
        }
        BoxedSets sets(static_cast<std::size_t>(below(5)));
        for (BoxedSet& set : sets) {
            set.Price = 200 + below(4000);
            for (int kinds = 1 + below(3); kinds > 0; --kinds)
                set.Pieces[below(4)] = 1 + below(4);
        }
        const Purchase purchase = CheapestPurchase(missing, Prices(single), sets);

        ASSERT_EQ(purchase.Total, Cheapest(missing, single, sets, 0)) << "round " << round;
        ASSERT_TRUE(purchase.IsProven()) << "round " << round;
        withSets += testing::Matches(testing::Contains(testing::Gt(0)))(purchase.Sets);
    }
    EXPECT_GT(withSets, 100);
}

BoxedSets ManySets(std::mt19937& random, int count) {
    BoxedSets sets(static_cast<std::size_t>(count));
    for (BoxedSet& set : sets) {
        for (int kinds = 0; kinds < 6; ++kinds)
            set.Pieces[static_cast<int>(random() % 28)] = 1 + static_cast<int>(random() % 8);
        for (const auto& [row, pieces] : set.Pieces)
            set.Price += pieces * (200 + static_cast<Cents>(random() % 200));
    }
    return sets;
}

TEST(Purchase, IsProvenWith30SetsAndTellsItsBoundWithMore) {
    std::mt19937 random(5);
    std::vector<int> missing;
    std::vector<Cents> single;
    for (int row = 0; row < 28; ++row) {
        missing.push_back(static_cast<int>(random() % 30));
        single.push_back(300 + static_cast<Cents>(random() % 300));
    }
    EXPECT_TRUE(CheapestPurchase(missing, Prices(single), ManySets(random, 30)).IsProven());

    const Purchase many = CheapestPurchase(missing, Prices(single), ManySets(random, 60));
    EXPECT_LE(many.Bound, many.Total);
    EXPECT_GT(many.Bound, many.Total * 9 / 10);
}

TEST(Purchase, CanBeStopped) {
    std::stop_source stop;
    stop.request_stop();

    EXPECT_THROW(
        CheapestPurchase({1}, Prices({100}), {{"box", 50, {{0, 2}}}}, {.Progress = {}, .Stop = stop.get_token()}),
        Stopped);
}

TEST(MissingPieces, AreThoseBeyondTheOwnedOnesOfBothHands) {
    Project project = ProjectOf("C151L C151R C160", "C8010L C8010R N10111");
    SetStock(project, "C151L", 1);
    SetStock(project, "C160", 3);
    const auto at = [](const char* code) { return static_cast<std::size_t>(Pieces().FindRow(code)); };

    const std::vector<int> missing = MissingPieces(Pieces(), project.Stock, project.Design.Circuit);
    EXPECT_EQ(missing[at("C151L")], 1);
    EXPECT_EQ(missing[at("C160")], 0);
    EXPECT_EQ(missing[at("C8010L")], 2);
    EXPECT_EQ(missing[at("C8010R")], 0);
    EXPECT_EQ(missing[at("N10111")], 1);
    EXPECT_EQ(UnusedPieces(Pieces(), project.Stock, project.Design.Circuit)[at("C160")], 2);
}

} // namespace
} // namespace pistaro

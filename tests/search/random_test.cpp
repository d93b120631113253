#include "search/random.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(RandomNumbers, AreThoseOfSplitMix64) {
    Random random(0);

    EXPECT_EQ(random.Next(), 0xE220A8397B1DCDAF);
    EXPECT_EQ(random.Next(), 0x6E789E6AA1B965F4);
}

TEST(RandomNumbers, BelowALimitReachAllUpToIt) {
    Random random(1);
    bool seen[3] = {};
    for (int i = 0; i < 100; ++i)
        seen[random.Below(3)] = true;

    EXPECT_TRUE(seen[0] && seen[1] && seen[2]);
}

} // namespace
} // namespace pistaro

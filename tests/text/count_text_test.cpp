#include "text/count_text.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(CountText, OneThingAloneTakesNoS) {
    EXPECT_EQ(CountText(0, "piece"), "0 pieces");
    EXPECT_EQ(CountText(1, "piece"), "1 piece");
    EXPECT_EQ(CountText(std::size_t{2}, "piece"), "2 pieces");
}

} // namespace
} // namespace pistaro

// Keeping libraries' words out of the standard error.
#include "platform/processes.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace pistaro {

TEST(SilentStandardError, TakesNothingWhileItLivesAndEverythingAfterwards) {
    testing::internal::CaptureStderr();
    std::fputs("before ", stderr);
    {
        const SilentStandardError silent;
        std::fputs("within ", stderr);
    }
    std::fputs("after", stderr);

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "before after");
}

} // namespace pistaro

// Lines as they stand in files.
#include "text/crlf_lines.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(CrLfLines, EachLineEndsInCarriageReturnAndLineFeed) {
    CrLfLines lines;

    lines << "[Room]"
          << ""
          << "0";

    EXPECT_EQ(lines.Take(), "[Room]\r\n\r\n0\r\n");
    EXPECT_EQ(lines.Take(), "");
}

} // namespace
} // namespace pistaro

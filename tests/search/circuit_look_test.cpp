// Which circuits a person takes for the same one at a glance.
#include "search/circuit_look.h"

#include "support/chain.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pistaro {
namespace {

/// An L: two arms that are not equally long, and one curve to the right between them.
const std::string Arms = "C160 C160 C160 C151L C151L C160 C151L C151L C160 C151R C151R C160 C160 C151L C151L "
                         "C160 C151L C151L C160 C160 C160 C160 C160 C151L C151L";

CircuitLook Look(const std::string& codes) { return LookOf(Pieces(), RowsOf(codes)); }

void ExpectAlike(const std::string& one, const std::string& other) {
    EXPECT_TRUE(LookAlike(Look(one), Look(other))) << one << "\n" << other;
    EXPECT_LT(LeastDifference(Look(one), Look(other)), 0.24);
}

std::string Backwards(const std::string& codes) {
    std::vector<int> rows = RowsOf(codes);
    std::ranges::reverse(rows);
    std::string text;
    for (const int row : rows)
        text += SwappedHand(Pieces()[row].Code) + " ";
    return text;
}

std::string Mirrored(const std::string& codes) {
    std::string text;
    for (const int row : RowsOf(codes))
        text += SwappedHand(Pieces()[row].Code) + " ";
    return text;
}

TEST(Looks, DoNotDependOnWhereALapBeginsOrWhereItLeads) {
    ExpectAlike(Arms, Arms);
    ExpectAlike(Arms, "C151L C151L " + Arms.substr(0, Arms.size() - 12));
    ExpectAlike(Arms, Backwards(Arms));
    ExpectAlike(Arms, Mirrored(Arms));
    ExpectAlike(Arms, Mirrored(Backwards(Arms)));
}

TEST(Looks, DoNotTellWhatAStretchIsLaidFrom) {
    const std::string oval = "C160 C160 C151L C151L C151L C151L C160 C160 C151L C151L C151L C151L";
    ExpectAlike(oval, "C159 C159 C160 C151L C151L C151L C151L C160 C159 C159 C151L C151L C151L C151L");
    ExpectAlike(oval, "C160 C160 C154L C154L C151L C151L C151L C160 C160 C151L C151L C151L C151L");
    ExpectAlike(Arms + " C159", "C159 " + Arms);
}

TEST(Looks, DoNotTellALittleThatIsLonger) { ExpectAlike(Arms, "C158 " + Arms + " C158"); }

TEST(Looks, TellOneCourseFromAnother) {
    const std::string circle = "C151L C151L C151L C151L C151L C151L C151L C151L";
    const std::string oval = "C160 C151L C151L C151L C151L C160 C151L C151L C151L C151L";
    const std::string longOval = "C160 C160 C160 " + oval.substr(0, 29) + "C160 C160 C160 C151L C151L C151L C151L";
    const std::string square = "C160 C151L C151L C160 C151L C151L C160 C151L C151L C160 C151L C151L";
    const std::vector<std::string> courses{circle, oval, longOval, square, Arms};
    for (std::size_t i = 0; i < courses.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(LookAlike(Look(courses[i]), Look(courses[j]))) << courses[i] << "\n" << courses[j];
    }
}

TEST(Looks, TellASmallCircleFromALargeOne) {
    const std::string small = "C152L C152L C152L C152L C152L C152L C152L C152L";
    const std::string large = "C151L C151L C151L C151L C151L C151L C151L C151L";

    EXPECT_FALSE(LookAlike(Look(small), Look(large)));
    EXPECT_GT(LeastDifference(Look(small), Look(large)), 0.24);
}

} // namespace
} // namespace pistaro

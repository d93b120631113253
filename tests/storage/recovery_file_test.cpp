// Unsaved work on disk: the names of its files, what is found of it, and what goes in time.
#include "storage/recovery_file.h"

#include "platform/files.h"
#include "platform/locks.h"
#include "support/circuit_text.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::chrono::sys_seconds HalfPastSeven{std::chrono::sys_days{std::chrono::year{2026} / 11 / 22} +
                                                 std::chrono::hours(7) + std::chrono::minutes(31) +
                                                 std::chrono::seconds(5)};

RecoveryName Oval(int number = 1) { return {"oval", HalfPastSeven, "4711-18f3", number, false}; }

class RecoveryFiles : public testing::Test {
protected:
    /// Writes a work that was written last so many hours ago.
    void Leave(const RecoveryName& name, int hoursAgo, const std::string& bytes = CircuitText("C160")) const {
        const auto file = folder_.Path() / PathFromText(FileNameOf(name));
        WriteBytes(file, bytes);
        std::filesystem::last_write_time(file,
                                         std::filesystem::file_time_type::clock::now() - std::chrono::hours(hoursAgo));
    }

    std::vector<std::string> Found() const {
        std::vector<std::string> handles;
        for (const RecoveredWork& work : FindRecoveredWork(folder_.Path()))
            handles.push_back(work.Handle());
        return handles;
    }

    TemporaryFolder folder_;
};

TEST(RecoveryNames, TellTheDesignTheTimeAndTheProgram) {
    EXPECT_EQ(HandleOf(Oval()), "oval~20261122T073105Z~4711-18f3-1");
    EXPECT_EQ(FileNameOf(Oval()), "oval~20261122T073105Z~4711-18f3-1.trk");
    RecoveryName kept = Oval(12);
    kept.IsKept = true;
    EXPECT_EQ(FileNameOf(kept), "oval~20261122T073105Z~4711-18f3-12~kept.trk");
}

TEST(RecoveryNames, HoldNoBlankAndNothingThatAFilesNameMayNotHold) {
    RecoveryName name = Oval();
    name.Design = "My 1/2 \"big\" oval~5\n% für";
    EXPECT_EQ(HandleOf(name), "My%201%2F2%20%22big%22%20oval%7E5%0A%25%20für~20261122T073105Z~4711-18f3-1");
    EXPECT_EQ(RecoveryNameIn(FileNameOf(name)), name);
}

TEST(RecoveryNames, OfDesignsWithALongNameKeepItsBeginningInWholeCharacters) {
    RecoveryName name = Oval();
    for (int i = 0; i < 80; ++i)
        name.Design += "日";

    EXPECT_LE(FileNameOf(name).size(), 255U);
    std::string kept = "oval";
    for (int i = 0; i < 65; ++i)
        kept += "日"; // 4 and 65 times 3 bytes are 199
    EXPECT_EQ(RecoveryNameIn(FileNameOf(name))->Design, kept);
}

TEST(RecoveryNames, AreNotThoseOfOtherFiles) {
    for (const char* const other :
         {"oval.trk", "oval~20261122T073105Z~4711-18f3-1.bak", "oval~20261122~4711-18f3-1.trk",
          "oval~20261399T073105Z~4711-18f3-1.trk", "~kept.trk", "", "oval~20261122T073105Z~4711-18f3-x.trk"}) {
        EXPECT_EQ(RecoveryNameIn(other), std::nullopt) << other;
    }
}

TEST_F(RecoveryFiles, AreFoundTheLastWrittenFirst) {
    Leave(Oval(1), 5);
    Leave(Oval(2), 1);
    Leave(Oval(3), 3);
    WriteBytes(folder_ / "mine.trk", CircuitText("C160"));

    EXPECT_THAT(Found(), ElementsAre("oval~20261122T073105Z~4711-18f3-2", "oval~20261122T073105Z~4711-18f3-3",
                                     "oval~20261122T073105Z~4711-18f3-1"));
}

TEST_F(RecoveryFiles, TellWhatIsInThemUnlessTheyAreDamaged) {
    Leave(Oval(1), 1, CircuitText("C160 C151L C151L"));
    Leave(Oval(2), 2, "[Settings]\r\n0\r\n");

    const auto works = WithContent(FindRecoveredWork(folder_.Path()));

    ASSERT_EQ(works.size(), 2U);
    EXPECT_EQ(works[0].Pieces(), 3);
    EXPECT_EQ(works[0].Content->Circuit.Tracks[0].ElementCodes[1], "C151L");
    EXPECT_EQ(works[1].Content, std::nullopt);
    EXPECT_EQ(works[1].Pieces(), 0);
}

TEST_F(RecoveryFiles, ShowWhetherTheirProgramLives) {
    Leave(Oval(), 1);
    {
        const LifeSign sign(LifeSignOf(folder_.Path(), "4711-18f3"));
        EXPECT_TRUE(FindRecoveredWork(folder_.Path()).front().OwnerLives);
    }
    EXPECT_FALSE(FindRecoveredWork(folder_.Path()).front().OwnerLives);
}

TEST_F(RecoveryFiles, OfAFolderThatIsNotThereAreNone) {
    EXPECT_THAT(FindRecoveredWork(folder_ / "gone"), IsEmpty());
    TidyRecoveredWork(folder_ / "gone");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "gone"));
}

TEST_F(RecoveryFiles, TheNewestTwentyStay) {
    for (int number = 1; number <= 23; ++number)
        Leave(Oval(number), number);

    TidyRecoveredWork(folder_.Path());

    const auto left = Found();
    EXPECT_EQ(left.size(), 20U);
    EXPECT_EQ(left.front(), "oval~20261122T073105Z~4711-18f3-1");
    EXPECT_EQ(left.back(), "oval~20261122T073105Z~4711-18f3-20");
}

TEST_F(RecoveryFiles, OfALivingProgramStayHoweverOldTheyAre) {
    const LifeSign sign(LifeSignOf(folder_.Path(), "1-1"));
    RecoveryName others = Oval();
    others.Owner = "1-1";
    Leave(others, 100);
    for (int number = 1; number <= 20; ++number)
        Leave(Oval(number), number);

    TidyRecoveredWork(folder_.Path());

    EXPECT_EQ(Found().size(), 21U);
    EXPECT_TRUE(LifeSign::IsAlive(LifeSignOf(folder_.Path(), "1-1")));
}

TEST_F(RecoveryFiles, AreTidiedTogetherWithWhatKilledProgramsLeft) {
    WriteBytes(folder_ / "4711-18f3.lives", "");
    Leave(Oval(), 1);
    const auto half = folder_ / ".pistaro-a1B2c3.tmp";
    WriteBytes(half, "half");
    std::filesystem::last_write_time(half, std::filesystem::file_time_type::clock::now() - std::chrono::hours(25));

    TidyRecoveredWork(folder_.Path());

    EXPECT_EQ(FilesIn(folder_.Path()), 1U);
}

} // namespace
} // namespace pistaro

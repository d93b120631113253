// The list of the circuits that were loaded and saved last.
#include "storage/recent_circuits.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <thread>

namespace pistaro {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Recent : public testing::Test {
protected:
    /// The list as the next start reads it.
    std::vector<std::filesystem::path> Kept() const {
        RecentCircuits recent(file_);
        recent.Read();
        return recent.List();
    }

    TemporaryFolder folder_;
    const std::filesystem::path file_ = folder_ / "new folder" / "recent";
    const std::filesystem::path a_ = folder_ / "a.trk", b_ = folder_ / "b.trk";
    RecentCircuits recent_{file_};
};

} // namespace

TEST_F(Recent, IsEmptyAtFirstAndReadsNothingByItself) {
    EXPECT_THAT(recent_.List(), IsEmpty());
    EXPECT_THAT(Kept(), IsEmpty());
    EXPECT_EQ(FilesIn(folder_.Path()), 0U);
}

TEST_F(Recent, HasTheNewestInFrontAndEachOnce) {
    recent_.Add(a_);
    recent_.Add(b_);
    recent_.Add(a_);

    EXPECT_THAT(recent_.List(), ElementsAre(a_, b_));
    EXPECT_THAT(Kept(), ElementsAre(a_, b_));
}

TEST_F(Recent, KeepsTen) {
    for (int i = 1; i <= 12; ++i)
        recent_.Add(folder_ / (std::to_string(i) + ".trk"));

    ASSERT_EQ(Kept().size(), 10U);
    EXPECT_EQ(Kept().front(), folder_ / "12.trk");
    EXPECT_EQ(Kept().back(), folder_ / "3.trk");
}

TEST_F(Recent, KeepsNamesOfAllKinds) {
    const std::vector<std::filesystem::path> names{folder_ / "Łódź 日本.trk", folder_ / "a\nb.trk",
                                                   folder_ / "50%25.trk"};
    for (const auto& name : names)
        recent_.Add(name);

    EXPECT_THAT(Kept(), ElementsAre(names[2], names[1], names[0]));
}

TEST_F(Recent, SharesTheFileWithAnotherWindow) {
    RecentCircuits other(file_);
    recent_.Add(a_);
    other.Add(b_);

    EXPECT_THAT(Kept(), ElementsAre(b_, a_));
}

TEST_F(Recent, LosesNothingWhenWindowsAddAtTheSameTime) {
    for (int round = 0; round < 20; ++round) {
        std::filesystem::remove_all(file_.parent_path());
        std::vector<std::thread> windows;
        for (int window = 0; window < 5; ++window)
            windows.emplace_back([&, window] {
                RecentCircuits recent(file_);
                recent.Add(folder_ / (std::to_string(window) + " first.trk"));
                recent.Add(folder_ / (std::to_string(window) + " second.trk"));
            });
        for (std::thread& window : windows)
            window.join();

        EXPECT_EQ(Kept().size(), 10U);
    }
}

TEST_F(Recent, IsClearedForEveryone) {
    recent_.Add(a_);
    recent_.Clear();

    EXPECT_THAT(recent_.List(), IsEmpty());
    EXPECT_THAT(Kept(), IsEmpty());
}

TEST_F(Recent, WithoutAFileIsForThisStartOnly) {
    RecentCircuits recent;
    recent.Add(a_);
    recent.Add(b_);
    recent.Read();

    EXPECT_THAT(recent.List(), ElementsAre(b_, a_));
    EXPECT_EQ(FilesIn(folder_.Path()), 0U);
}

TEST_F(Recent, WithAFileThatCannotBeWrittenOrReadDisturbsNobody) {
    std::filesystem::create_directories(file_);
    recent_.Add(a_);
    recent_.Read();
    EXPECT_THAT(recent_.List(), ElementsAre(a_));
    EXPECT_THAT(Kept(), IsEmpty());

    RecentCircuits inAFile(a_ / "recent");
    WriteBytes(a_, "a file, no folder");
    inAFile.Add(b_);
    EXPECT_THAT(inAFile.List(), ElementsAre(b_));
}

TEST_F(Recent, OfAFileThatIsNoListIsEmpty) {
    std::filesystem::create_directories(file_.parent_path());
    for (const std::string& bytes :
         {std::string("\0\1\2", 3), std::string("not a path\r\n\r\n../x.trk\r\n"), std::string(5 << 20, 'x')}) {
        WriteBytes(file_, bytes);
        EXPECT_THAT(Kept(), IsEmpty());
    }
}

} // namespace pistaro

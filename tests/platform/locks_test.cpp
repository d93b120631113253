// Two at the same file: what each lock keeps out, and that it leaves nothing behind.
#include "platform/locks.h"

#include "platform/files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace pistaro {
namespace {

TEST(RewriteLock, LetsManyWritersAddToAFileWithoutLosingAnything) {
    const TemporaryFolder folder;
    const auto file = folder / "corvel.ini";
    WriteBytes(file, "");
    constexpr int writers = 4;
    constexpr int rounds = 50;
    const auto write = [&](char mark) {
        for (int i = 0; i < rounds; ++i) {
            const RewriteLock lock(file);
            ReplaceFile(file, ReadFile(file, 1000) + mark);
        }
    };

    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < writers; ++i)
            threads.emplace_back(write, static_cast<char>('a' + i));
    }

    EXPECT_EQ(BytesOf(file).size(), std::size_t{writers * rounds});
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(RewriteLock, OfAMissingFileIsNone) {
    const TemporaryFolder folder;
    const RewriteLock lock(folder / "gone.ini");

    EXPECT_EQ(FilesIn(folder.Path()), 0U);
}

TEST(LifeSign, ShowsAsLongAsItLives) {
    const TemporaryFolder folder;
    const auto file = folder / "4711.lives";
    EXPECT_FALSE(LifeSign::IsAlive(file));
    {
        const LifeSign sign(file);
        EXPECT_TRUE(LifeSign::IsAlive(file));
        EXPECT_TRUE(LifeSign::IsAlive(file)) << "looking at it changes nothing";
    }
    EXPECT_FALSE(LifeSign::IsAlive(file));
    EXPECT_EQ(FilesIn(folder.Path()), 0U);
}

TEST(LifeSign, ThatAKilledProgramLeftShowsNoLife) {
    const TemporaryFolder folder;
    WriteBytes(folder / "4711.lives", "");

    EXPECT_FALSE(LifeSign::IsAlive(folder / "4711.lives"));
}

} // namespace
} // namespace pistaro

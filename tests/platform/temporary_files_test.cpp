// What killed programs leave half-written is swept a day later, and nothing else.
#include "platform/temporary_files.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

using namespace std::chrono_literals;

class Temporaries : public testing::Test {
protected:
    void Leave(const char* name, std::chrono::minutes ago) const {
        WriteBytes(folder_ / name, "half");
        std::filesystem::last_write_time(folder_ / name, std::filesystem::file_time_type::clock::now() - ago);
    }
    bool Stands(const char* name) const { return std::filesystem::exists(folder_ / name); }

    TemporaryFolder folder_;
};

TEST_F(Temporaries, OlderThanADayAreSwept) {
    Leave(".pistaro-a1B2c3.tmp", 24h + 1min);
    Leave(".pistaro-4711-0.tmp", 48h);
    Leave(".pistaro-d4E5f6.tmp", 24h - 1min);

    SweepTemporaries(folder_.Path());

    EXPECT_FALSE(Stands(".pistaro-a1B2c3.tmp"));
    EXPECT_FALSE(Stands(".pistaro-4711-0.tmp"));
    EXPECT_TRUE(Stands(".pistaro-d4E5f6.tmp")) << "another program may still be writing it";
}

TEST_F(Temporaries, AreToldByTheirNameFromTheUsersFiles) {
    for (const char* const name : {"oval.trk", ".pistaro-notes", "pistaro-a1B2c3.tmp", "x.tmp"})
        Leave(name, 1000h);
    std::filesystem::create_directory(folder_ / ".pistaro-folder.tmp");
    std::error_code onlyOfFiles; // on Windows
    std::filesystem::last_write_time(folder_ / ".pistaro-folder.tmp",
                                     std::filesystem::file_time_type::clock::now() - 1000h, onlyOfFiles);

    SweepTemporaries(folder_.Path());

    EXPECT_EQ(FilesIn(folder_.Path()), 5U);
}

TEST_F(Temporaries, OfAFolderThatIsNotThereAreNone) {
    SweepTemporaries(folder_ / "gone");
    SweepTemporaries("");

    EXPECT_FALSE(std::filesystem::exists(folder_ / "gone"));
}

} // namespace
} // namespace pistaro

// What windows write beside the settings, while calls to the system fail: the old file or the new one stands there
// whole afterwards, and nothing else.
#include "faults/failing_calls.h"
#include "support/temporary_folder.h"
#include "ui/frmSets.h"
#include "ui/window_fixture.h"
#include "ui/window_settings.h"

#include <gmock/gmock.h>

#include <array>
#include <cerrno>

namespace pistaro {
namespace {

constexpr std::array Errors{ENOSPC, EDQUOT, EACCES, EIO};

class FailingSettings : public WindowTest {
protected:
    /// Does it with each call failing in turn, over a file with the old bytes, and calls `look` after each.
    template <typename Work, typename Look>
    void TryEachCall(const std::filesystem::path& file, const std::string& old, Work work, Look look) {
        WriteBytes(file, old);
        work();
        const std::string fresh = BytesOf(file);
        ASSERT_NE(fresh, old);
        for (const int error : Errors) {
            int call = 0;
            for (bool failed = true; failed;) {
                WriteBytes(file, old);
                FailCall(folder_.Path().string(), ++call, error);
                work();
                const std::string what = StopFailing();
                SCOPED_TRACE("call " + std::to_string(call) + ", error " + std::to_string(error) + ": " + what);
                failed = !what.empty();
                EXPECT_THAT(BytesOf(file), testing::AnyOf(old, fresh));
                EXPECT_EQ(FilesIn(folder_.Path()), 1U) << "no temporary file";
                look(BytesOf(file) == old);
                if (testing::Test::HasFailure()) return;
            }
            EXPECT_GT(call, 2) << "opened, written, renamed: so many calls fail at least";
        }
    }

    TemporaryFolder folder_;
};

TEST_F(FailingSettings, OfTheWindowItself) {
    Open();
    const std::filesystem::path file = folder_ / "window.ini";

    TryEachCall(
        file, "[habits]\npaper=A3\nof-another-version=1\n", [&] { KeepWindow(file, *Window, *Session); },
        [&](bool) { EXPECT_TRUE(Prompts.Told.empty()) << "whoever quits is not bothered with it"; });

    EXPECT_THAT(BytesOf(file), testing::HasSubstr("of-another-version=1")) << "what others wrote stays";
}

TEST_F(FailingSettings, OfTheBoxedSets) {
    WriteBytes(folder_ / "sets.toml", "");
    pistaro::Session session(Pieces(), Prompts, ProjectOf("C160"), folder_ / "corvel.ini");
    const std::string old = "[[set]]\nname = \"Old\"\nprice = 5\npieces = { C160 = 1 }\n";

    TryEachCall(
        folder_ / "sets.toml", old,
        [&] {
            Prompts.Told.clear();
            session.Do([&] { // as its row opens it
                frmSets dialog(session);
                dialog.findChild<QAbstractButton*>("cmdAddSet")->click();
                dialog.findChild<QAbstractButton*>("cmdSaveSets")->click();
            });
        },
        [&](bool isOld) {
            if (!isOld) return;
            ASSERT_EQ(Prompts.Told.size(), 1U);
            EXPECT_EQ(Prompts.Told[0].Icon, Icon::Exclamation);
            EXPECT_THAT(Prompts.Told[0].Text, testing::HasSubstr((folder_ / "sets.toml").string()));
        });
}

} // namespace
} // namespace pistaro

// The start of the designer: the opening window, the main one, and what comes then.
#include "ui/designer.h"

#include "commands/recovery.h"
#include "storage/settings_file.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"
#include "ui/frmAbout.h"
#include "ui/frmCorvel.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The opening window, or null.
QWidget* OpeningWindow() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "frmAbout" && window->isVisible()) return window;
    }
    return nullptr;
}

class Designer : public testing::Test, protected ScriptedPrompts {
protected:
    Designer() { WriteBytes(folder_ / "oval.trk", CircuitText("C160 C159")); }
    ~Designer() override { delete OpeningWindow(); } // of a test that has failed: it would show a window that is gone

    /// Writes down what stands on the screen while something is told.
    void Tell(const Message& message) override {
        seen_.push_back(message.Text + (window_.isVisible() ? " | window" : "") +
                        (OpeningWindow() != nullptr ? " | opening window" : "") + " | " +
                        CodesOf(session_.Project.Design.Circuit.Tracks[0]));
    }

    void Begin(bool noSplash) {
        const DesignerOptions options{folder_ / "oval.trk", std::nullopt, noSplash};
        BeginDesigning(window_, session_, {{Icon::Exclamation, "first"}, {Icon::Exclamation, "second"}}, options);
    }

    std::string Codes() const { return CodesOf(session_.Project.Design.Circuit.Tracks[0]); }

    TemporaryFolder folder_;
    Session session_{Pieces(), *this, StartUp(InitialSettings(Pieces())), ""};
    frmCorvel window_{session_};
    std::vector<std::string> seen_;
};

TEST_F(Designer, TellsAndLoadsOnlyWhenTheMainWindowHasTakenTheOpeningWindowsPlace) {
    Begin(false);

    QTest::qWait(500);
    EXPECT_NE(OpeningWindow(), nullptr);
    EXPECT_FALSE(window_.isVisible());
    EXPECT_THAT(seen_, IsEmpty());
    EXPECT_EQ(Codes(), "");

    EXPECT_TRUE(QTest::qWaitFor([&] { return !Codes().empty(); }));
    EXPECT_THAT(seen_, ElementsAre("first | window | ", "second | window | "));
    EXPECT_EQ(Codes(), "C160 C159");
    EXPECT_EQ(window_.windowTitle(), "Pistaro - oval");
}

TEST_F(Designer, WithoutTheOpeningWindowTheMainWindowIsThereAtOnce) {
    Begin(true);

    EXPECT_TRUE(window_.isVisible());
    EXPECT_THAT(seen_, IsEmpty()) << "not before it can be seen";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Codes().empty(); }));
    EXPECT_EQ(OpeningWindow(), nullptr);
    EXPECT_THAT(seen_, ElementsAre("first | window | ", "second | window | "));
}

/// The first track's pieces of the works that a recovery folder holds.
std::vector<std::string> CodesKept(const std::filesystem::path& folder) {
    std::vector<std::string> codes;
    for (const RecoveredWork& work : WithContent(FindRecoveredWork(folder)))
        codes.push_back(CodesOf(work.Content->Circuit.Tracks[0]));
    return codes;
}

TEST_F(Designer, HasUnsavedWorkOnDiskBeforeALogOffThatLeavesNoTimeToAsk) {
    Recovery recovery(
        session_, folder_ / "recovery", [](const std::function<void()>&) {}, std::chrono::hours(1));
    session_.Run(*session_.Commands.Find("add C160"));
    EXPECT_THAT(CodesKept(folder_ / "recovery"), IsEmpty()) << "it waits";
    window_.show();

    EXPECT_TRUE(LetsLogOff(window_, recovery, false));

    EXPECT_THAT(CodesKept(folder_ / "recovery"), ElementsAre("C160"));
    EXPECT_THAT(Asked, IsEmpty());
    EXPECT_TRUE(window_.isVisible());
}

TEST_F(Designer, AsksAtALogOffWhatQuitAsksAndKeepsTheWorkWhateverIsAnswered) {
    Recovery recovery(
        session_, folder_ / "recovery", [](const std::function<void()>&) {}, std::chrono::hours(1));
    session_.Run(*session_.Commands.Find("add C160"));
    window_.show();
    Answers = {Answer::Yes};

    EXPECT_TRUE(LetsLogOff(window_, recovery, true));

    ASSERT_EQ(Asked.size(), 1U);
    EXPECT_EQ(Asked[0].Text, "Discard unsaved data?");
    EXPECT_FALSE(window_.isVisible());
    EXPECT_THAT(CodesKept(folder_ / "recovery"), ElementsAre("C160")) << "discarded, and kept all the same";
}

} // namespace
} // namespace pistaro

// The dialog of recovered work, and the start that finds some.
#include "ui/frmRecovered.h"

#include "storage/settings_file.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"
#include "ui/designer.h"
#include "ui/frmCorvel.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* Oval = "oval~20261122T073105Z~1.2-1";
constexpr const char* Eight = "eight~20261122T073105Z~1.2-2";

class Recovered : public testing::Test {
protected:
    Recovered() {
        Leave(Oval, 1, CircuitText("C160 C151L"));
        Leave(Eight, 2, CircuitText("C151L"));
    }

    void Leave(const std::string& handle, int hoursAgo, const std::string& bytes) const {
        const auto file = folder_ / (handle + ".trk");
        WriteBytes(file, bytes);
        std::filesystem::last_write_time(file,
                                         std::filesystem::file_time_type::clock::now() - std::chrono::hours(hoursAgo));
    }

    void Open(frmRecovered::Occasion occasion) {
        dialog_.emplace(session_, occasion);
        dialog_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&*dialog_));
    }

    template <typename Control>
    static Control& In(const QWidget& window, const char* name) {
        auto* const control = window.findChild<Control*>(name);
        if (control == nullptr) throw std::logic_error(std::string("there is no control ") + name);
        return *control;
    }
    void Press(const char* name) { QTest::mouseClick(&In<QPushButton>(*dialog_, name), Qt::LeftButton); }

    /// What the list shows, without the times, which are the place's.
    std::vector<std::string> Rows() {
        std::vector<std::string> rows;
        auto& list = In<QListWidget>(*dialog_, "lstWorks");
        for (int row = 0; row < list.count(); ++row)
            rows.push_back(list.item(row)->text().section('\n', 0, 1).replace('\n', ", ").toStdString());
        return rows;
    }

    std::string Codes() const { return CodesOf(session_.Project.Design.Circuit.Tracks[0]); }

    TemporaryFolder folder_, circuits_;
    ScriptedPrompts prompts_;
    Session session_{Pieces(), prompts_, ProjectOf(""), ""};
    Recovery recovery_{session_, folder_.Path(), [](const std::function<void()>&) {}};
    std::optional<frmRecovered> dialog_;
};

TEST_F(Recovered, WorkIsListedWithItsNameItsPiecesItsTimeAndAPicture) {
    Leave("odd~20261122T073105Z~1.2-3", 3, "no circuit");
    Open(frmRecovered::Occasion::Menu);

    EXPECT_THAT(Rows(), ElementsAre("oval, 2 pieces", "eight, 1 piece", "odd, damaged, cannot be opened"));
    auto& list = In<QListWidget>(*dialog_, "lstWorks");
    EXPECT_EQ(list.item(0)->text().count('\n'), 2);
    EXPECT_EQ(list.item(0)->icon().actualSize(list.iconSize()), QSize(128, 128));
    EXPECT_TRUE(list.item(2)->icon().isNull());
}

TEST_F(Recovered, ThePictureShowsThePieces) {
    Open(frmRecovered::Occasion::Menu);
    auto& list = In<QListWidget>(*dialog_, "lstWorks");

    const QImage picture = list.item(0)->icon().pixmap(list.iconSize()).toImage();

    int drawn = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            drawn += picture.pixel(x, y) != picture.pixel(0, 0);
    }
    EXPECT_GT(drawn, 500);
}

TEST_F(Recovered, OpeningOneBringsItIntoTheDesignAndCloses) {
    Open(frmRecovered::Occasion::Menu);
    In<QListWidget>(*dialog_, "lstWorks").setCurrentRow(1);

    Press("cmdOpen");

    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(Codes(), "C151L");
    EXPECT_TRUE(session_.Project.EditState.DataChanged);
}

TEST_F(Recovered, ADoubleClickOpensToo) {
    Open(frmRecovered::Occasion::Menu);
    auto& list = In<QListWidget>(*dialog_, "lstWorks");
    const QPoint first = list.visualItemRect(list.item(0)).center();

    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, first);

    EXPECT_EQ(Codes(), "C160 C151L");
}

TEST_F(Recovered, ACancelledQuestionLeavesTheDialogOpen) {
    session_.Run(*session_.Commands.Find("add C160"));
    session_.Run(*session_.Commands.Find("add C160"));
    prompts_.Answers = {Answer::Cancel};
    Open(frmRecovered::Occasion::Menu);

    Press("cmdOpen");

    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(Codes(), "C160 C160");
}

TEST_F(Recovered, ADamagedOneCanBeCopiedAndDeletedButNotOpened) {
    Leave("odd~20261122T073105Z~1.2-3", 0, "no circuit");
    Open(frmRecovered::Occasion::Menu);
    EXPECT_FALSE(In<QPushButton>(*dialog_, "cmdOpen").isEnabled());
    EXPECT_EQ(In<QPushButton>(*dialog_, "cmdOpen").toolTip(), "This work is damaged.");
    prompts_.Files = {circuits_ / "odd.trk"};
    prompts_.Answers = {Answer::Yes};

    Press("cmdCopy");
    Press("cmdDelete");

    EXPECT_EQ(BytesOf(circuits_ / "odd.trk"), "no circuit");
    EXPECT_THAT(Rows(), ElementsAre("oval, 2 pieces", "eight, 1 piece"));
    EXPECT_TRUE(In<QPushButton>(*dialog_, "cmdOpen").isEnabled());
}

TEST_F(Recovered, WithoutAnyNothingCanBePressed) {
    std::filesystem::remove(folder_ / (std::string(Oval) + ".trk"));
    std::filesystem::remove(folder_ / (std::string(Eight) + ".trk"));
    Open(frmRecovered::Occasion::Menu);

    for (const char* const name : {"cmdOpen", "cmdCopy", "cmdDelete"})
        EXPECT_FALSE(In<QPushButton>(*dialog_, name).isEnabled()) << name;
    EXPECT_EQ(In<QLabel>(*dialog_, "lblExplain").text(), "There is no unsaved work.");
}

TEST_F(Recovered, IsOpenedFromTheMenu) {
    frmCorvel window(session_);
    bool shown = false;
    QTimer::singleShot(0, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        shown = dialog != nullptr && dialog->objectName() == "frmRecovered";
        if (dialog != nullptr) dialog->close();
    });

    In<QAction>(window, "mnuRecovered").trigger();

    EXPECT_TRUE(shown);
}

TEST_F(Recovered, TheMenuEntryIsGreyWhereNothingIsKept) {
    Session session(Pieces(), prompts_, ProjectOf(""), "");
    frmCorvel window(session);

    EXPECT_FALSE(In<QAction>(window, "mnuRecovered").isEnabled());
    EXPECT_THAT(In<QAction>(window, "mnuRecovered").toolTip().toStdString(),
                HasSubstr("There is no folder to keep unsaved work in."));
}

/// The start of the designer; answers the dialog by a button, and tells what it was asked in.
class StartWithWork : public Recovered {
protected:
    /// Gives the dialog's explanation; empty when there was no dialog.
    std::string Start(const char* button, const std::optional<std::filesystem::path>& circuit = {}) {
        frmCorvel window(session_);
        std::string explanation;
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, [&] {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            explanation = In<QLabel>(*dialog, "lblExplain").text().toStdString();
            codesBefore_ = Codes();
            QTest::mouseClick(&In<QPushButton>(*dialog, button), Qt::LeftButton);
        });
        answer.start(50);
        BeginDesigning(window, session_, {}, {.Circuit = circuit, .SettingsFile = "", .NoSplash = true});
        QTest::qWait(300);
        return explanation;
    }

    std::string codesBefore_;
};

TEST_F(StartWithWork, ShowsItOnceAndKeepsIt) {
    EXPECT_THAT(Start("cmdOK"), HasSubstr("ended before this work was saved"));
    EXPECT_EQ(Codes(), "");
    EXPECT_EQ(Start("cmdOK"), "");

    EXPECT_EQ(recovery_.Works().size(), 2U);
}

TEST_F(StartWithWork, OpensOneAndKeepsTheOthers) {
    Start("cmdOpen");

    EXPECT_EQ(Codes(), "C160 C151L");
    ASSERT_EQ(recovery_.Works().size(), 1U);
    EXPECT_EQ(recovery_.Works()[0].Name.Design, "eight");
    EXPECT_THAT(recovery_.Untold(), IsEmpty());
}

TEST_F(StartWithWork, ShowsItWhenTheCircuitThatWasNamedIsOpen) {
    WriteBytes(circuits_ / "mine.trk", CircuitText("C164"));

    Start("cmdOK", circuits_ / "mine.trk");

    EXPECT_EQ(codesBefore_, "C164");
    EXPECT_EQ(Codes(), "C164");
}

} // namespace
} // namespace pistaro

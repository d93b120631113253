// Undo, redo, the history's list, plain Save and the recent circuits through menu, keys and mouse.
#include "ui/window_fixture.h"

#include "support/circuit_text.h"
#include "support/temporary_folder.h"

#include <QListView>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace pistaro {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HistoryInTheWindow : public WindowTest {
protected:
    void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::ControlModifier) {
        QTest::keyClick(Window.get(), key, with);
    }
    std::string Caption(const char* entry) { return Entry(entry).text().toStdString(); }

    QListView& OpenHistory() {
        Choose("mnuHistory");
        return Find<QListView>("lstHistory");
    }
    static void ClickState(QListView& list, int state) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(state, 0)).center());
    }
    static std::vector<std::string> TextsOf(const QListView& list) {
        std::vector<std::string> texts;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            texts.push_back(list.model()->index(row, 0).data().toString().toStdString());
        return texts;
    }
    /// The states that stand out: the present one.
    static std::vector<int> BoldStates(const QListView& list) {
        std::vector<int> bold;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            if (list.model()->index(row, 0).data(Qt::FontRole).value<QFont>().bold()) bold.push_back(row);
        return bold;
    }

    /// What the user sees in Circuit ▸ Recent.
    std::vector<std::string> Recents() {
        Window->findChild<QMenu*>("mnuRecentCircuits")->popup(QPoint(0, 0));
        std::vector<std::string> captions;
        for (const QAction* const entry : Window->findChildren<QAction*>("mnuRecent"))
            if (entry->isVisible()) captions.push_back(entry->text().toStdString());
        Window->findChild<QMenu*>("mnuRecentCircuits")->close();
        return captions;
    }

    /// Another window comes to the front, and this one back.
    void ComeBack() {
        QWidget other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        Window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
        QTest::qWait(20);
    }

    TemporaryFolder Folder;
};

} // namespace

TEST_F(HistoryInTheWindow, IsSteppedThroughByKeys) {
    Open();
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
    Click("cmdElement", "C160");
    Click("cmdElement", "C151L");
    Press(Qt::Key_Up);

    EXPECT_EQ(Caption("mnuUndo"), "&Undo Move Up");
    Press(Qt::Key_Z);
    Press(Qt::Key_Z);
    EXPECT_EQ(Codes(), "C160");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"0  C160"}));
    EXPECT_EQ(Caption("mnuUndo"), "&Undo Add C160");
    EXPECT_EQ(Caption("mnuRedo"), "&Redo Add C151");
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Codes(), "C160 C151L");
    Press(Qt::Key_Y);
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].TrackStartY, 15.5F);
    EXPECT_FALSE(Entry("mnuRedo").isEnabled());
    EXPECT_EQ(Entry("mnuRedo").toolTip(), "There is nothing to redo.");
}

TEST_F(HistoryInTheWindow, TakesTheWordUnsavedAwayWhereTheSavedStateIsBack) {
    Open();
    Click("cmdElement", "C160");
    Prompts.Files = {Folder / "x.trk"};
    Press(Qt::Key_S);
    Click("cmdElement", "C160");
    EXPECT_TRUE(Text("lblStatus").ends_with("unsaved")) << Text("lblStatus");

    Choose("mnuUndo");

    EXPECT_FALSE(Text("lblStatus").ends_with("unsaved")) << Text("lblStatus");
    EXPECT_EQ(Window->windowTitle(), "Pistaro - x");
}

TEST_F(HistoryInTheWindow, StepsAcrossALoadWithItsTitle) {
    WriteBytes(Folder / "oval.trk", CircuitText("C187L"));
    Open();
    Click("cmdElement", "C160");
    Prompts.Files = {Folder / "oval.trk"};
    Choose("mnuCircuitLoad");
    EXPECT_EQ(Window->windowTitle(), "Pistaro - oval");

    Press(Qt::Key_Z);

    EXPECT_EQ(Window->windowTitle(), "Pistaro - new project");
    EXPECT_EQ(Codes(), "C160");
}

TEST_F(HistoryInTheWindow, IsAListInWhichAClickGoesToAnyState) {
    Open();
    QListView& list = OpenHistory();
    EXPECT_THAT(TextsOf(list), ElementsAre("Start"));
    for (const char* const code : {"C160", "C151L", "C151R"})
        Click("cmdElement", code);
    QApplication::processEvents();
    EXPECT_THAT(TextsOf(list), ElementsAre("Start", "Add C160", "Add C151", "Add C151")) << "it follows";
    EXPECT_THAT(BoldStates(list), ElementsAre(3));

    ClickState(list, 1);
    EXPECT_EQ(Codes(), "C160");
    QApplication::processEvents();
    EXPECT_THAT(BoldStates(list), ElementsAre(1));
    EXPECT_EQ(list.currentIndex().row(), 1);
    ClickState(list, 3);
    EXPECT_EQ(Codes(), "C160 C151L C151R");
    ClickState(list, 0);
    EXPECT_EQ(Codes(), "");
    EXPECT_EQ(TextsOf(list).size(), 4U) << "what was undone is still there";
}

TEST_F(HistoryInTheWindow, ListIsRefilledOnceAfterManyStepsAndOnlyWhileItIsShown) {
    Open();
    Press(Qt::Key_H);
    QTest::qWait(20);
    const auto& list = Find<QListView>("lstHistory");
    const QSignalSpy refills(list.model(), &QAbstractItemModel::modelReset);

    Click("cmdElement", "C160", 3);
    EXPECT_EQ(refills.count(), 0) << "no step waits for it";
    QApplication::processEvents();
    EXPECT_EQ(refills.count(), 1);
    EXPECT_EQ(list.currentIndex().row(), 3);

    Press(Qt::Key_H);
    QTest::qWait(20);
    ASSERT_FALSE(list.isVisible());
    Click("cmdElement", "C160");
    QTest::qWait(20);
    EXPECT_EQ(refills.count(), 1) << "it is put away";
    Press(Qt::Key_H);
    EXPECT_EQ(TextsOf(list).size(), 5U);
}

TEST_F(HistoryInTheWindow, ListStepsByTheKeyboard) {
    Open();
    Click("cmdElement", "C160");
    Click("cmdElement", "C160");
    QListView& list = OpenHistory();

    QTest::keyClick(&list, Qt::Key_Up);
    EXPECT_EQ(Codes(), "C160 C160");
    QTest::keyClick(&list, Qt::Key_Return);

    EXPECT_EQ(Codes(), "C160");
    EXPECT_TRUE(list.isVisible());
}

TEST_F(HistoryInTheWindow, ListStandsBesideTheDrawingUntilItsKeyPutsItAway) {
    Open();
    auto& dock = Find<QDockWidget>("fraHistory");
    EXPECT_FALSE(dock.isVisible());
    Window->resize(1300, 800);
    QTest::qWait(20);
    const int width = Picture().width();

    Press(Qt::Key_H);
    QTest::qWait(20);
    EXPECT_TRUE(dock.isVisible());
    EXPECT_TRUE(Entry("mnuHistory").isChecked());
    EXPECT_LT(Picture().width(), width);
    EXPECT_GT(Picture().width(), width - 320) << "it leaves the drawing its room";
    Click("cmdElement", "C160");
    QApplication::processEvents();
    EXPECT_THAT(TextsOf(Find<QListView>("lstHistory")), ElementsAre("Start", "Add C160"));

    Press(Qt::Key_H);
    QTest::qWait(20);
    EXPECT_FALSE(dock.isVisible());
    EXPECT_FALSE(Entry("mnuHistory").isChecked());
    EXPECT_EQ(Picture().width(), width);
}

TEST_F(HistoryInTheWindow, DrawAreaIsAStep) {
    Open();
    Session->Do([&] {
        Session->NameStep("Draw Area");
        Project.Design.View = ViewAround(0, 0, 200, 160);
    });
    EXPECT_EQ(Caption("mnuUndo"), "&Undo Draw Area");

    Press(Qt::Key_Z);

    EXPECT_EQ(Project.Design.View.Width, 320);
}

TEST_F(HistoryInTheWindow, PlainSaveAsksNothingAndSaveAsShowsItsDialog) {
    Open();
    Click("cmdElement", "C160");
    Prompts.Files = {Folder / "a.trk", Folder / "b.trk"};
    Press(Qt::Key_S);
    EXPECT_EQ(Prompts.Dialogs.size(), 1U) << "it has no file yet";
    Click("cmdElement", "C160");
    Press(Qt::Key_S);
    EXPECT_EQ(Prompts.Dialogs.size(), 1U);
    EXPECT_FALSE(Project.EditState.DataChanged);
    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);

    EXPECT_EQ(Prompts.Dialogs.size(), 2U);
    EXPECT_EQ(BytesOf(Folder / "a.trk"), BytesOf(Folder / "b.trk"));
    EXPECT_THAT(Prompts.Asked, IsEmpty());
}

TEST_F(HistoryInTheWindow, OffersTheFileThatAnotherProgramChangedWhenItComesBack) {
    WriteBytes(Folder / "oval.trk", CircuitText("C160"));
    Open();
    Window->Open(Folder / "oval.trk");
    ComeBack();
    EXPECT_THAT(Prompts.Asked, IsEmpty());

    WriteBytes(Folder / "oval.trk", CircuitText("C164"));
    Prompts.Answers = {Answer::No};
    ComeBack();
    ComeBack();
    ASSERT_EQ(Prompts.Asked.size(), 1U) << "once";
    EXPECT_EQ(Prompts.Asked[0].Text, "oval.trk was changed by another program. Load it?");
    EXPECT_EQ(Codes(), "C160");

    WriteBytes(Folder / "oval.trk", CircuitText("C187L"));
    Prompts.Answers = {Answer::Yes};
    ComeBack();
    EXPECT_EQ(Codes(), "C187L");
}

TEST_F(HistoryInTheWindow, MenuRecentOpensWhatWasLoadedAndSavedLast) {
    WriteBytes(Folder / "oval.trk", CircuitText("C187L"));
    Open();
    Session->Recent = RecentCircuits(Folder / "recent");
    EXPECT_THAT(Recents(), IsEmpty());
    EXPECT_FALSE(Entry("mnuRecentClear").isEnabled());
    Window->Open(Folder / "oval.trk");
    Click("cmdElement", "C160");
    Prompts.Files = {Folder / "R&D.trk"};
    Choose("mnuCircuitSave");

    const std::filesystem::path folder = Folder.Path().filename();
    EXPECT_THAT(Recents(), ElementsAre("&1 " + (folder / "R&&D.trk").string(), "&2 " + (folder / "oval.trk").string()));
    EXPECT_EQ(Entry("mnuRecent", "2").toolTip().toStdString(), (Folder / "oval.trk").string());
    Choose("mnuRecent", "2");
    EXPECT_EQ(Codes(), "C187L");
    EXPECT_EQ(Window->windowTitle(), "Pistaro - oval");

    std::filesystem::remove(Folder / "R&D.trk");
    EXPECT_EQ(Recents().size(), 2U);
    EXPECT_FALSE(Entry("mnuRecent", "2").isEnabled());
    EXPECT_EQ(Entry("mnuRecent", "2").toolTip().toStdString(), (Folder / "R&D.trk").string() + " is no longer there.");
    Choose("mnuRecentClear");
    EXPECT_THAT(Recents(), IsEmpty());
    EXPECT_TRUE(std::filesystem::exists(Folder / "oval.trk"));
}

} // namespace pistaro

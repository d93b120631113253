// Load, Save, New and Quit with their questions; files that are dropped; closing the window.
#include "ui/window_fixture.h"

#include "storage/circuit_file.h"
#include "support/temporary_folder.h"

#include <QMenuBar>
#include <QMimeData>
#include <QWindow>

namespace pistaro {

class CircuitMenu : public WindowTest {
protected:
    /// Opens the window on unsaved work in track 1.
    void OpenUnsaved(const std::string& codes) {
        pistaro::Project project = ProjectOf(codes);
        project.EditState.DataChanged = true;
        Open(project);
    }

    /// A circuit file of these pieces.
    std::filesystem::path FileOf(const std::string& codes, const char* name = "oval.trk") {
        const std::filesystem::path file = Folder / name;
        WriteBytes(file, CircuitBytes(ProjectOf(codes).Design));
        return file;
    }

    void ExpectQuestion(const std::string& text, Buttons buttons) {
        ASSERT_EQ(Prompts.Asked.size(), 1U);
        EXPECT_EQ(Prompts.Asked[0].Text, text);
        EXPECT_EQ(Prompts.Asked[0].Choices, buttons);
    }

    TemporaryFolder Folder;
};

TEST_F(CircuitMenu, LettersTypedIntoTheWindowOrAnOpenMenuNeitherChangeTheDesignNorOpenAnotherMenu) {
    Open(ProjectOf("C160 C151L C151R"));
    const std::string letters = "abcdefghijklmnopqrstuvwxyzTM";
    for (QWidget* const focused : {&Picture(), static_cast<QWidget*>(&List()), static_cast<QWidget*>(Window.get())}) {
        focused->setFocus();
        for (const char letter : letters)
            QTest::keyClick(focused, letter);
        EXPECT_EQ(Codes(), "C160 C151L C151R");
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }

    QMenu* circuit = nullptr;
    for (QMenu* const menu : Window->findChildren<QMenu*>()) {
        if (menu->title() == "&Circuit") circuit = menu;
    }
    ASSERT_NE(circuit, nullptr);
    Window->menuBar()->setActiveAction(circuit->menuAction());
    ASSERT_TRUE(circuit->isVisible());
    for (const char letter : {'/', 't', 'i'}) {
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), letter); // by two menus' letters: Track, Invert
    }
    EXPECT_EQ(QApplication::activePopupWidget(), circuit) << "the track's menu has not taken its place";
    for (const char letter : {'r', 't', 'i'}) {
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), letter); // the first one opens the recent circuits
    }
    EXPECT_EQ(QApplication::activePopupWidget()->objectName(), "mnuRecentCircuits");
    EXPECT_EQ(Codes(), "C160 C151L C151R");
    EXPECT_FALSE(Project.EditState.DataChanged);
    circuit->close();
}

TEST_F(CircuitMenu, LoadReplacesTheCircuitAndNamesTheWindowAfterTheFile) {
    Open(ProjectOf("C157 C157 C157"));
    Prompts.Files = {FileOf("C160 C159")};

    Choose("mnuCircuitLoad");

    ASSERT_EQ(Prompts.Dialogs.size(), 1U);
    EXPECT_FALSE(Prompts.Dialogs[0].Saving);
    EXPECT_EQ(Prompts.Dialogs[0].Title, "Load Circuit");
    EXPECT_EQ(Prompts.Dialogs[0].Filter, "Track files (*.trk)|*.trk");
    EXPECT_EQ(Prompts.Dialogs[0].DefaultName, "");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"0  C160", "1  C159"}));
    EXPECT_EQ(Window->windowTitle(), "Pistaro - oval");
    EXPECT_EQ(Text("lblselected"), "Nothing selected");
    EXPECT_TRUE(Prompts.Asked.empty());
}

TEST_F(CircuitMenu, LoadAsksAboutUnsavedWorkAndCancelKeepsIt) {
    OpenUnsaved("C160 C160");
    Prompts.Answers = {Answer::Cancel};

    Choose("mnuCircuitLoad");

    ExpectQuestion("All data will be lost if you proceed.", Buttons::OkCancel);
    EXPECT_TRUE(Prompts.Dialogs.empty());
    EXPECT_EQ(Codes(), "C160 C160");
    EXPECT_TRUE(Project.EditState.DataChanged);
}

TEST_F(CircuitMenu, ADamagedFileIsToldAndTheCircuitStays) {
    Open(ProjectOf("C160"));
    WriteBytes(Folder / "short.trk", "[Settings]\r\n0\r\n");
    Prompts.Files = {Folder / "short.trk"};

    Choose("mnuCircuitLoad");

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Icon, Icon::Exclamation);
    EXPECT_TRUE(Prompts.Told[0].Text.starts_with("Input past end of file: ")) << Prompts.Told[0].Text;
    EXPECT_NE(Prompts.Told[0].Text.find("short.trk"), std::string::npos);
    EXPECT_EQ(Codes(), "C160");
    Click("cmdElement", "C160");
    EXPECT_EQ(Codes(), "C160 C160") << "the program goes on";
}

TEST_F(CircuitMenu, NewAsksAboutUnsavedWork) {
    OpenUnsaved("C160 C160");
    Prompts.Answers = {Answer::Cancel, Answer::Ok};

    Choose("mnuCircuitReinit");
    ExpectQuestion("Send data on its way to binary oblivion?", Buttons::OkCancel);
    EXPECT_EQ(Codes(), "C160 C160");

    Choose("mnuCircuitReinit");
    EXPECT_EQ(Codes(), "");
    EXPECT_EQ(List().count(), 0);
    EXPECT_EQ(Window->windowTitle(), "Pistaro - new project");
}

TEST_F(CircuitMenu, NewBringsBackTheStartPointsButKeepsTheirY) {
    Open(ProjectOf("C160"));
    Click("cmdMvUpRight");
    Click("cmdRotLeft");

    Choose("mnuCircuitReinit"); // one element is no work to ask about

    EXPECT_TRUE(Prompts.Asked.empty());
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].TrackStartX, 0);
    EXPECT_EQ(Project.Design.Circuit.Tracks[1].TrackStartX, 15.5);
    EXPECT_EQ(Project.Design.Circuit.Tracks[2].TrackStartX, -15.5);
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].TrackStartY, 15.5);
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].TrackStartHeading, 0);
}

TEST_F(CircuitMenu, ASingleElementIsAskedAboutByQuitAlone) {
    OpenUnsaved("C160");
    Prompts.Files = {std::nullopt};
    Choose("mnuCircuitLoad");
    EXPECT_TRUE(Prompts.Asked.empty());

    Project.EditState.DataChanged = true;
    Prompts.Answers = {Answer::Yes};
    Choose("mnuQuit");
    ExpectQuestion("Discard unsaved data?", Buttons::YesNo);
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(CircuitMenu, AnEmptyProjectIsSavedAs22Lines) {
    Open();
    Prompts.Files = {Folder / "empty.trk"};

    Choose("mnuCircuitSave");

    ASSERT_EQ(Prompts.Dialogs.size(), 1U);
    EXPECT_TRUE(Prompts.Dialogs[0].Saving);
    EXPECT_EQ(Prompts.Dialogs[0].Title, "Save Circuit");
    EXPECT_EQ(Prompts.Dialogs[0].DefaultName, "");
    const std::string bytes = BytesOf(Folder / "empty.trk");
    EXPECT_EQ(std::ranges::count(bytes, '\n'), 22);
    EXPECT_EQ(Window->windowTitle(), "Pistaro - empty");
}

TEST_F(CircuitMenu, ACancelledSaveMarksTheWorkAsSavedAndQuitAsksNothing) {
    OpenUnsaved("C160 C160");
    Prompts.Files = {std::nullopt};

    Choose("mnuCircuitSave");
    Choose("mnuQuit");

    EXPECT_TRUE(Prompts.Asked.empty());
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(CircuitMenu, AnExistingFileIsOverwrittenAfterNoToo) {
    OpenUnsaved("C160 C160");
    Prompts.Files = {FileOf("C157")};
    Prompts.Answers = {Answer::No};

    Choose("mnuCircuitSave");

    ExpectQuestion("A file with that name already exists. Overwrite?", Buttons::YesNo);
    EXPECT_TRUE(BytesOf(Folder / "oval.trk").find("C160\r\nC160") != std::string::npos);
    EXPECT_EQ(Window->windowTitle(), "Pistaro - oval");
    EXPECT_FALSE(Project.EditState.DataChanged);
}

TEST_F(CircuitMenu, ClosingTheWindowAsksWhatQuitAsksAndSavesAfterNo) {
    OpenUnsaved("C160");
    Prompts.Answers = {Answer::No};
    Prompts.Files = {Folder / "kept.trk"};

    EXPECT_TRUE(Window->close());

    ExpectQuestion("Discard unsaved data?", Buttons::YesNo);
    EXPECT_TRUE(std::filesystem::exists(Folder / "kept.trk"));
}

TEST_F(CircuitMenu, QuitEndsTheProgramAlsoWhenItsSaveIsCancelled) {
    OpenUnsaved("C160");
    Prompts.Answers = {Answer::No};
    Prompts.Files = {std::nullopt};

    EXPECT_TRUE(Window->close());
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(CircuitMenu, AFailedSaveKeepsTheProgramOpenAndTheWorkUnsaved) {
    OpenUnsaved("C160");
    Prompts.Answers = {Answer::No};
    Prompts.Files = {Folder / "missing" / "kept.trk"};

    EXPECT_FALSE(Window->close());

    EXPECT_TRUE(Window->isVisible());
    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_TRUE(Prompts.Told[0].Text.starts_with("Path not found: ")) << Prompts.Told[0].Text;
    EXPECT_TRUE(Project.EditState.DataChanged);
}

TEST_F(CircuitMenu, ADroppedCircuitFileIsLoadedAfterItsQuestion) {
    OpenUnsaved("C160 C160");
    Prompts.Answers = {Answer::Ok};
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(FileOf("C159").string()))});

    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(Window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(Window.get(), &drop);
    QTest::qWait(20);

    ExpectQuestion("All data will be lost if you proceed.", Buttons::OkCancel);
    EXPECT_EQ(Codes(), "C159");
    EXPECT_EQ(Window->windowTitle(), "Pistaro - oval");
}

TEST_F(CircuitMenu, OtherFilesCannotBeDropped) {
    Open();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/tmp/holiday.jpg")});

    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(Window.get(), &enter);

    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(CircuitMenu, ANameOfFewerThanFourCharactersBecomesEmpty) {
    Open();
    Prompts.Files = {FileOf("C160", "abc")};

    Choose("mnuCircuitLoad");

    EXPECT_EQ(Window->windowTitle(), "Pistaro - ");
    EXPECT_EQ(Codes(), "C160");
}

TEST_F(CircuitMenu, ANameIsShownInTheTitleAsItStands) {
    pistaro::Project project = ProjectOf("C160");
    project.EditState.File = "club [*] & co.trk";

    Open(project);

    EXPECT_EQ(Window->windowHandle()->title(), "Pistaro - club [*] & co");
}

TEST_F(CircuitMenu, AProjectSavedWithTheMouseIsTheSameWhenItIsLoadedAgain) {
    Open();
    for (const char* const code : {"C160", "C151L", "C151L", "C160", "C151L", "C151L"})
        Click("cmdElement", code);
    Prompts.Files = {Folder / "built.trk", Folder / "built.trk"};
    Choose("mnuCircuitSave");
    Choose("mnuCircuitReinit");
    EXPECT_EQ(Codes(), "");

    Choose("mnuCircuitLoad");

    EXPECT_EQ(Codes(), "C160 C151L C151L C160 C151L C151L");
    Click("cmdElement", "C160");
    EXPECT_EQ(Codes(), "C160 C151L C151L C160 C151L C151L C160");
}

} // namespace pistaro

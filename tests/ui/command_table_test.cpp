// The command table and the window's controls, each found in the other.
#include "ui/window_fixture.h"

#include "commands/recovery.h"
#include "support/circuit_text.h"
#include "support/fake_viewer.h"
#include "support/named_windows.h"
#include "support/press.h"
#include "support/temporary_folder.h"

#include <QClipboard>
#include <QMenuBar>
#include <QShortcut>
#include <QTabBar>

#include <chrono>
#include <map>
#include <set>
#include <thread>

namespace pistaro {

namespace {

QString Shown(const std::string& text) { return QString::fromStdString(text); }

QKeySequence KeyOf(const std::string& key) { return QKeySequence(Shown(key), QKeySequence::PortableText); }
QKeySequence KeyOf(const Command& command) { return KeyOf(command.Key); }

QList<QKeySequence> KeysOf(const Command& command) {
    QList<QKeySequence> keys;
    for (const std::string& key : {command.Key, command.OtherKey})
        if (!key.empty()) keys.append(KeyOf(key));
    return keys;
}

/// The tip of a control that shows its key nowhere else.
QString TipWithKey(const Command& command) {
    const QString key = KeyOf(command).toString(QKeySequence::NativeText);
    return Shown(command.Tip) + (key.isEmpty() ? "" : " (" + key + ")");
}

/// A control by its name and its Tag: "cmdElement C160", "mnuStats ".
std::string NameOf(const QObject& control) {
    return (control.objectName() + " " + control.property("Tag").toString()).toStdString();
}
std::string NameOf(const Command& command) { return command.Control + " " + command.Tag; }

JobEnd WaitToBeStopped(const JobWatch& watch) {
    for (;; std::this_thread::sleep_for(std::chrono::milliseconds(1)))
        watch.Step(1, 2);
}

} // namespace

class TableAndWindow : public WindowTest {
protected:
    TableAndWindow() { EmptyFolder(); }

    /// Opens the window on a project in which the row can be run.
    void OpenSuitedTo(const Command& command) {
        pistaro::Project project = ProjectOf("C151L C160 C159 N10102");
        project.EditState.CurrentElement[0] = 0;
        if (command.Id == "start here")
            project.Design.Circuit.Tracks[0] = Chain("C151L C151L C151L C151L C151L C151L C151L C151L");
        project.EditState.InsertMode = command.Id == "build";
        project.EditState.DataChanged = command.Id == "quit";
        if (command.Id.starts_with("add N")) project.EditState.System = TrackSystem::Ninco;
        while (command.Id.starts_with("replace") && !WhyNot(project, command.Id).empty())
            ++project.EditState.CurrentElement[0];
        project.Preferences.WorkingDirectory = (Folder / "").string();
        Kept.reset();
        if (command.Id == "paste") QGuiApplication::clipboard()->setText("C160 x2");
        Open(project);
        Opened = Project;
        Kept = KeepsWork(*Session, command);
        Session->Do([] {}); // the window hears of it
        Prepare(*Session, command);
        if (command.Id == "background clear") Session->Do([&] { Session->Background = Floor(); });
        if (command.Id == "cancel job")
            Session->Do([&] { Session->StartJob({"Waiting", "Something is waited for.", WaitToBeStopped}); });
    }

    /// What recovered work is looked at in.
    std::unique_ptr<Recovery> KeepsWork(pistaro::Session& session, const Command& command) const {
        if (command.Id != "recovered work") return nullptr;
        return std::make_unique<Recovery>(session, Folder / "recovery", [](const std::function<void()>&) {});
    }

    /// Gives a row what it is for: undo and redo a step, the list of recent circuits ten of them.
    void Prepare(pistaro::Session& session, const Command& command) const {
        if (command.Id == "undo" || command.Id == "redo") session.Run(*session.Commands.Find("mirror"));
        if (command.Id == "redo") session.Run(*session.Commands.Find("undo"));
        if (command.Id == "background place" || command.Id == "background move" || command.Id == "background remove")
            session.Do([&] { session.Project.Background = Carpet(); });
        LayRecent(session, command);
    }
    void LayRecent(pistaro::Session& session, const Command& command) const {
        if (!command.Id.starts_with("recent")) return;
        session.Recent = RecentCircuits(Folder / "recent");
        for (int i = 10; i > 0; --i) {
            const std::filesystem::path circuit = Folder / (std::to_string(i) + ".trk");
            WriteBytes(circuit, CircuitText("C160"));
            session.Recent.Add(circuit);
        }
    }

    /// Opens the menu of an entry, as the list of recent circuits is read then.
    void OpenMenuOf(const QAction& entry) {
        for (QMenu* const menu : Window->findChildren<QMenu*>()) {
            if (!menu->actions().contains(&entry)) continue;
            menu->popup(QPoint(0, 0));
            menu->close();
        }
    }

    /// Every control that the user can press: the buttons, and the entries of the menus. Those that the toolkit makes
    /// for its own needs, and the one that belongs to a job, are none of the table's.
    std::vector<QObject*> Controls() {
        std::vector<QObject*> controls;
        for (QAbstractButton* const button : Window->findChildren<QAbstractButton*>()) {
            // The strips have buttons of their own, as dialogs have; those of the panels of money and of checks lead
            // on to rows that stand in the menus.
            const bool isOfStrip =
                Find<QWidget>("fraSuggestions").isAncestorOf(button) ||
                Find<QWidget>("fraBalance").isAncestorOf(button) || Find<QWidget>("fraPicture").isAncestorOf(button) ||
                Find<QWidget>("fraChecks").isAncestorOf(button) || Find<QWidget>("fraMoney").isAncestorOf(button);
            // The toolkit's own scroll the tabs of panels, or close these.
            const bool isToolkits =
                button->objectName().startsWith("qt_") || qobject_cast<QTabBar*>(button->parent()) != nullptr;
            if (!isToolkits && !isOfStrip) controls.push_back(button);
        }
        std::vector<const QWidget*> places{Window->menuBar()};
        for (const QMenu* const menu : Window->findChildren<QMenu*>())
            places.push_back(menu);
        for (const QWidget* const place : places) {
            for (QAction* const action : place->actions()) {
                if (!action->isSeparator() && action->menu() == nullptr) controls.push_back(action);
            }
        }
        return controls;
    }

    std::vector<QObject*> ControlsOf(const Command& command) {
        std::vector<QObject*> controls = Controls();
        std::erase_if(controls, [&](const QObject* control) { return NameOf(*control) != NameOf(command); });
        return controls;
    }

    /// Expects what `use` does to the window to come to what running the row in a session without a window comes to.
    template <typename Use>
    void ExpectRun(const Command& command, Use use) {
        OpenSuitedTo(command);
        ScriptedPrompts user;
        pistaro::Session session(Pieces(), user, Opened, "");
        const auto kept = KeepsWork(session, command);
        Prepare(session, command);
        session.Background = Session->Background;
        const bool showsPage = command.Id == "guide" || command.Id == "manual";
        const std::string expected = OutcomeOf(
            session, user, [&] { session.Run(command); }, showsPage);
        EmptyFolder();
        LayRecent(*Session, command);
        Prompts = {};
        EXPECT_EQ(OutcomeOf(*Session, Prompts, use, showsPage), expected);
        EmptyFolder();
    }

    const CommandTable Table{Pieces()};
    TemporaryFolder Folder;
    std::unique_ptr<Recovery> Kept; ///< goes before the session does
    pistaro::Project Opened;        ///< as the window was opened on it

private:
    /// Only a manual stands in the working directory.
    void EmptyFolder() const {
        for (const auto& file : std::filesystem::directory_iterator(Folder.Path()))
            std::filesystem::remove_all(file.path());
        std::filesystem::create_directory(Folder / "manual");
        WriteBytes(Folder / "manual" / "help.html", "the manual");
    }

    /// What lies under the circuit to scale: no picture, which shows as nothing.
    static std::shared_ptr<const ScaledBackground> Carpet() {
        return std::make_shared<const ScaledBackground>(
            ScaledBackground{.Picture = std::make_shared<const std::string>("no picture"), .CmPerPixel = 1});
    }

    /// A picture to lay behind the circuit.
    pistaro::Picture Floor() const {
        QImage floor(8, 8, QImage::Format_RGB32);
        floor.fill(Qt::cyan);
        const std::filesystem::path file = Folder / "floor.bmp";
        EXPECT_TRUE(floor.save(Shown(file.string())));
        pistaro::Picture picture = pistaro::Picture::Read(file);
        std::filesystem::remove(file);
        return picture;
    }

    /// What is done, said, asked, opened and written while something runs, as text.
    template <typename Run>
    std::string OutcomeOf(pistaro::Session& session, ScriptedPrompts& user, Run run, bool showsPage) const {
        NamedWindows windows;
        session.Windows = &windows;
        const auto notified = std::make_shared<bool>(false); // the session may outlive this call
        const Observation observation = session.Observe([notified](const Changes&) { *notified = true; });
        const FakeViewer viewer;
        user.Answers.assign(2, Answer::Yes);
        user.Files.assign(2, std::nullopt);
        run();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !session.HasJob(); }, 60000));
        session.Windows = nullptr;

        std::string text = Snapshot(session.Project) + (*notified ? "\nnotified" : "") + windows.Opened;
        text += "\nnumbers " + std::to_string(session.Project.EditState.ShowNumbers);
        text += "\nbackground " + std::to_string(session.Background.has_value());
        text += session.Project.Background ? " to scale" : "";
        for (const Message& message : user.Told)
            text += "\ntold " + message.Text;
        for (const auto& question : user.Asked)
            text += "\nasked " + question.Text;
        for (const FileChoice& choice : user.Dialogs)
            text += "\nchoice " + choice.Title;
        for (const std::string& page : showsPage ? viewer.Arguments() : std::vector<std::string>())
            text += "\nviewed " + page;
        std::set<std::string> files;
        for (const auto& file : std::filesystem::directory_iterator(Folder.Path()))
            files.insert(file.path().filename().string());
        for (const std::string& file : files)
            text += "\nfile " + file;
        return text;
    }
};

TEST_F(TableAndWindow, EachRowHasExactlyOneLiveControlThatShowsIt) {
    for (const Command& command : Table.Rows()) {
        SCOPED_TRACE(command.Id);
        OpenSuitedTo(command);

        const std::vector<QObject*> controls = ControlsOf(command);
        ASSERT_EQ(controls.size(), 1U);
        const QVariant index = controls[0]->property("Index");
        EXPECT_EQ(index, command.Index < 0 ? QVariant() : QVariant(command.Index));
        if (const auto* const entry = qobject_cast<const QAction*>(controls[0])) {
            OpenMenuOf(*entry);
            EXPECT_EQ(entry->text(), Shown(command.Shows ? command.Shows(*Session) : command.Caption));
            const bool showsPath = command.Control == "mnuRecent";
            EXPECT_EQ(entry->toolTip(), Shown(showsPath ? (Folder / (command.Tag + ".trk")).string() : command.Tip));
            EXPECT_EQ(entry->shortcuts(), KeysOf(command));
            EXPECT_TRUE(entry->isEnabled());
            EXPECT_TRUE(entry->isVisible());
            continue;
        }
        const auto& button = dynamic_cast<const QAbstractButton&>(*controls[0]);
        EXPECT_EQ(button.text(), Shown(command.Caption));
        EXPECT_EQ(button.toolTip(), TipWithKey(command));
        EXPECT_TRUE(button.isEnabled());
        EXPECT_TRUE(button.isVisible());
        EXPECT_NE(button.focusPolicy(), Qt::NoFocus);
        const QList<QShortcut*> keys = button.findChildren<QShortcut*>();
        ASSERT_EQ(keys.size(), KeysOf(command).size());
        for (const QShortcut* const key : keys)
            EXPECT_TRUE(KeysOf(command).contains(key->key()));
    }
}

TEST_F(TableAndWindow, EachControlOfTheWindowIsARow) {
    Open();
    std::set<std::string> rows;
    for (const Command& command : Table.Rows())
        rows.insert(NameOf(command));

    for (const QObject* const control : Controls())
        EXPECT_TRUE(rows.contains(NameOf(*control))) << NameOf(*control);
    EXPECT_EQ(Controls().size(), rows.size());
}

TEST_F(TableAndWindow, EachControlRunsItsRow) {
    for (const Command& command : Table.Rows()) {
        if (command.Id == "cancel job") continue; // there is no job without a window
        SCOPED_TRACE(command.Id);
        ExpectRun(command, [&] {
            const std::vector<QObject*> controls = ControlsOf(command);
            ASSERT_FALSE(controls.empty());
            const bool isEntry = qobject_cast<QAction*>(controls[0]) != nullptr;
            isEntry ? Choose(command.Control, command.Tag) : Click(command.Control, command.Tag);
        });
    }
}

TEST_F(TableAndWindow, EachKeyRunsItsRow) {
    for (const Command& command : Table.Rows()) {
        for (const QKeySequence& sequence : KeysOf(command)) {
            SCOPED_TRACE(command.Id);
            ExpectRun(command, [&] {
                const QKeyCombination key = sequence[0];
                QTest::keyClick(Window.get(), key.key(), key.keyboardModifiers());
            });
        }
    }
}

TEST_F(TableAndWindow, TheButtonBesideAJobsBarEndsTheJob) {
    OpenSuitedTo(*Table.Find("cancel job"));
    EXPECT_TRUE(Session->HasJob());
    EXPECT_TRUE(Button("cmdCancelJob").isVisible());

    Click("cmdCancelJob");

    EXPECT_FALSE(Session->HasJob());
    EXPECT_FALSE(Button("cmdCancelJob").isVisible());
    EXPECT_TRUE(Prompts.Told.empty());
}

TEST_F(TableAndWindow, ArrowsAndSignsAreTheCaptionsOfMovingTurningAndZooming) {
    Open();
    const std::map<std::string, QString> captions{{"cmdMvLeft", "←"},   {"cmdMvRight", "→"},   {"cmdMvUp", "↑"},
                                                  {"cmdMvDn", "↓"},     {"cmdMvUpLeft", "↖"},  {"cmdMvUpRight", "↗"},
                                                  {"cmdMvDnLeft", "↙"}, {"cmdMvDnRight", "↘"}, {"cmdRotLeft", "↺"},
                                                  {"cmdRotRight", "↻"}, {"cmdZoomOut", "−"},   {"cmdZoomIn", "+"}};

    for (const auto& [name, caption] : captions)
        EXPECT_EQ(Button(name).text(), caption) << name;
}

TEST_F(TableAndWindow, ButtonsOfAnArrayCarryTheirIndexBesideTheirTag) {
    Open();
    std::map<int, std::string> elements;
    for (const auto* const button : Window->findChildren<QAbstractButton*>("cmdElement"))
        elements[button->property("Index").toInt()] = button->property("Tag").toString().toStdString();
    std::map<int, std::string> tracks;
    for (const auto* const button : Window->findChildren<QAbstractButton*>("optTrack"))
        tracks[button->property("Index").toInt()] = button->property("Tag").toString().toStdString();

    const std::map<int, std::string> inCatalogueOrder{
        {0, "C151L"},    {1, "C151R"},    {2, "C152L"},    {3, "C152R"},    {4, "C153L"},    {5, "C153R"},
        {6, "C154L"},    {7, "C154R"},    {8, "C156L"},    {9, "C156R"},    {10, "C157"},    {11, "C158"},
        {12, "C159"},    {13, "C160"},    {14, "C187L"},   {15, "C187R"},   {16, "N10102"},  {17, "N10103"},
        {18, "N10104"},  {19, "N10105L"}, {20, "N10105R"}, {21, "N10106L"}, {22, "N10106R"}, {23, "N10107L"},
        {24, "N10107R"}, {25, "N10108L"}, {26, "N10108R"}, {27, "N10110"}};
    EXPECT_EQ(elements, inCatalogueOrder);
    EXPECT_EQ(Window->findChildren<QAbstractButton*>("cmdElement").size(), 28);
    EXPECT_EQ(tracks, (std::map<int, std::string>{{0, "1"}, {1, "2"}, {2, "3"}}));
    EXPECT_EQ(Window->findChildren<QAbstractButton*>("optTrack").size(), 3);
}

TEST_F(TableAndWindow, WhatCannotBeDoneIsDisabledAndSaysWhy) {
    Open();

    EXPECT_FALSE(Button("cmdDelete").isEnabled());
    EXPECT_EQ(Button("cmdDelete").toolTip(), "The track is empty.");
    EXPECT_FALSE(Entry("mnuMirror").isEnabled());
    EXPECT_EQ(Entry("mnuMirror").toolTip(), "The track is empty.");

    Click("cmdElement", "C160");
    EXPECT_TRUE(Button("cmdDelete").isEnabled());
    EXPECT_EQ(Button("cmdDelete").toolTip(), "Take the selected element out of the track (Del)");
    EXPECT_EQ(Entry("mnuC8010").toolTip(), "The selected piece has another shape.");
}

TEST_F(TableAndWindow, NoTwoKeysAreAlike) {
    Open();
    std::multiset<QString> keys;
    for (const QAction* const entry : Window->findChildren<QAction*>())
        for (const QKeySequence& key : entry->shortcuts())
            keys.insert(key.toString());
    for (const QShortcut* const shortcut : Window->findChildren<QShortcut*>())
        keys.insert(shortcut->key().toString());

    for (const QString& key : keys)
        EXPECT_EQ(keys.count(key), 1U) << key.toStdString();
}

} // namespace pistaro

// Every row of the command table has a live control in the window.
#include "ui/window_fixture.h"

#include "editor/commands.h"
#include "storage/circuit_file.h"

#include <QShortcut>

namespace pistaro {

namespace {

/// Everything that a command may change, as text.
std::string StateOf(const Project& project) {
    return CircuitBytes(project) + "track " + std::to_string(project.Layout.CurrentTrack) + " insert " +
           std::to_string(project.InsertMode) + " system " + std::to_string(static_cast<int>(project.System)) +
           " selected " + std::to_string(project.Layout.Tracks[0].CurrentElement) + " changed " +
           std::to_string(project.DataChanged);
}

QString Shown(const std::string& text) { return QString::fromStdString(text); }

QKeySequence KeyOf(const Command& command) { return QKeySequence(Shown(command.Key), QKeySequence::PortableText); }

/// A project in which the row can be run.
Project SuitedTo(const Command& command) {
    Project project = ProjectOf("C151L C160 C159 N10102");
    const auto select = [&](int element) { project.Layout.Tracks[0].CurrentElement = element; };
    select(0);
    if (command.Id == "build") project.InsertMode = true;
    if (command.Id.starts_with("add N")) project.System = TrackSystem::Ninco;
    for (int element = 0; element < 4 && !command.WhyNot(project).empty(); ++element)
        select(element);
    return project;
}

} // namespace

class CommandTable : public WindowTest {
protected:
    bool IsEntry(const Command& command) { return Window->findChild<QAction*>(Shown(command.Control)) != nullptr; }
};

TEST_F(CommandTable, EachRowHasAControlWithItsCaptionTipAndKey) {
    for (const Command& command : Commands()) {
        SCOPED_TRACE(command.Id);
        Open(SuitedTo(command));
        if (IsEntry(command)) {
            const QAction& entry = Entry(command.Control);
            EXPECT_EQ(entry.text(), Shown(command.Caption));
            EXPECT_EQ(entry.toolTip(), Shown(command.Tip));
            EXPECT_EQ(entry.shortcut(), KeyOf(command));
            EXPECT_TRUE(entry.isEnabled());
            continue;
        }
        const QAbstractButton& button = Button(command.Control, command.Tag);
        EXPECT_EQ(button.text(), Shown(command.Caption));
        EXPECT_TRUE(button.toolTip().startsWith(Shown(command.Tip)));
        EXPECT_TRUE(button.isEnabled());
        EXPECT_TRUE(button.isVisible());
        EXPECT_NE(button.focusPolicy(), Qt::NoFocus);
        const auto* const key = button.findChild<QShortcut*>();
        EXPECT_EQ(key == nullptr ? QKeySequence() : key->key(), KeyOf(command));
    }
}

TEST_F(CommandTable, EachControlRunsItsRow) {
    for (const Command& command : Commands()) {
        SCOPED_TRACE(command.Id);
        const Project before = SuitedTo(command);
        Open(before);
        Prompts.Files.assign(2, std::nullopt);
        Project expected = before;
        command.Run(expected, Prompts);

        IsEntry(command) ? Choose(command.Control) : Click(command.Control, command.Tag);

        EXPECT_EQ(StateOf(Design), StateOf(expected));
    }
}

TEST_F(CommandTable, EachKeyRunsItsRow) {
    for (const Command& command : Commands()) {
        if (command.Key.empty()) continue;
        SCOPED_TRACE(command.Id);
        const Project before = SuitedTo(command);
        Open(before);
        Prompts.Files.assign(2, std::nullopt);
        Project expected = before;
        command.Run(expected, Prompts);

        const QKeyCombination key = KeyOf(command)[0];
        QTest::keyClick(Window.get(), key.key(), key.keyboardModifiers());

        EXPECT_EQ(StateOf(Design), StateOf(expected));
    }
}

TEST_F(CommandTable, WhatCannotBeDoneIsDisabledAndSaysWhy) {
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

TEST_F(CommandTable, NoTwoKeysAreAlike) {
    Open();
    std::multiset<QString> keys;
    for (const QAction* const entry : Window->findChildren<QAction*>())
        if (!entry->shortcut().isEmpty()) keys.insert(entry->shortcut().toString());
    for (const QShortcut* const shortcut : Window->findChildren<QShortcut*>())
        keys.insert(shortcut->key().toString());

    for (const QString& key : keys)
        EXPECT_EQ(keys.count(key), 1U) << key.toStdString();
}

} // namespace pistaro

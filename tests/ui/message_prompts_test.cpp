// Message boxes and file dialogs as the user sees them.
#include "ui/message_prompts.h"

#include "platform/files.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace pistaro {

namespace {

/// Runs while the next modal dialog of that kind stands open; it must close it.
template <typename Dialog>
void WhenShown(const std::function<void(Dialog&)>& look) {
    QTimer::singleShot(0, qApp, [look] {
        auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        look(*dialog);
        if (dialog->isVisible()) dialog->reject();
    });
}

} // namespace

TEST(MessagePrompts, TellShowsItsTextUnderTheIconOfTheMessage) {
    const std::pair<Icon, QMessageBox::Icon> icons[] = {{Icon::Exclamation, QMessageBox::Warning},
                                                        {Icon::Information, QMessageBox::Information},
                                                        {Icon::Critical, QMessageBox::Critical}};
    for (const auto& [icon, shown] : icons) {
        WhenShown<QMessageBox>([expected = shown](QMessageBox& box) {
            EXPECT_EQ(box.text(), "Settings saved.");
            EXPECT_EQ(box.icon(), expected);
            EXPECT_EQ(box.windowTitle(), "Pistaro");
            EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        });
        MessagePrompts().Tell({icon, "Settings saved."});
    }
}

TEST(MessagePrompts, AQuestionIsAnsweredByItsButtonsAndEnterAndEscapeAreTheHarmlessOne) {
    const auto answer = [](Buttons buttons, QMessageBox::StandardButton press) {
        WhenShown<QMessageBox>([=](QMessageBox& box) {
            EXPECT_EQ(box.standardButtons(), buttons == Buttons::OkCancel ? QMessageBox::Ok | QMessageBox::Cancel
                                                                          : QMessageBox::Yes | QMessageBox::No);
            EXPECT_EQ(box.icon(), QMessageBox::Question);
            QTest::mouseClick(static_cast<QWidget*>(box.button(press)), Qt::LeftButton);
        });
        return MessagePrompts().Ask("Discard unsaved data?", buttons);
    };
    EXPECT_EQ(answer(Buttons::OkCancel, QMessageBox::Ok), Answer::Ok);
    EXPECT_EQ(answer(Buttons::OkCancel, QMessageBox::Cancel), Answer::Cancel);
    EXPECT_EQ(answer(Buttons::YesNo, QMessageBox::Yes), Answer::Yes);
    EXPECT_EQ(answer(Buttons::YesNo, QMessageBox::No), Answer::No);

    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        WhenShown<QMessageBox>([key](QMessageBox& box) { QTest::keyClick(&box, key); });
        EXPECT_EQ(MessagePrompts().Ask("All data will be lost if you proceed.", Buttons::OkCancel), Answer::Cancel);
        WhenShown<QMessageBox>([key](QMessageBox& box) { QTest::keyClick(&box, key); });
        EXPECT_EQ(MessagePrompts().Ask("Discard unsaved data?", Buttons::YesNo), Answer::No);
    }
}

TEST(MessagePrompts, AQuestionWhetherToDoSomethingHasAButtonNamedSo) {
    const auto answer = [](Qt::Key key) {
        WhenShown<QMessageBox>([key](QMessageBox& box) {
            EXPECT_EQ(box.icon(), QMessageBox::Question);
            EXPECT_EQ(box.standardButtons(), QMessageBox::Cancel);
            ASSERT_NE(box.defaultButton(), nullptr);
            EXPECT_EQ(box.defaultButton()->text(), "Lay on &Track 3");
            QTest::keyClick(&box, key);
        });
        return MessagePrompts().AskWhether("Lay the piece on track 3 instead?", "Lay on &Track 3");
    };

    EXPECT_EQ(answer(Qt::Key_Return), Answer::Ok);
    EXPECT_EQ(answer(Qt::Key_Escape), Answer::Cancel);
}

TEST(MessagePrompts, AFilesNameThatLooksLikeMarkupIsShownAsItStands) {
    const std::string text = "File not found: /tmp/<b>club</b>.trk";
    const auto look = [text](QMessageBox& box) {
        EXPECT_EQ(box.text().toStdString(), text);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
    };
    WhenShown<QMessageBox>(look);
    MessagePrompts().Tell({Icon::Exclamation, text});
    WhenShown<QMessageBox>(look);
    MessagePrompts().Ask(text, Buttons::YesNo);
}

class FileDialogs : public ::testing::Test {
protected:
    /// What the user types into the dialog that saves.
    std::string SavedAs(const char* typed, bool keepsEnding = false) {
        WhenShown<QFileDialog>([typed](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText(typed);
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
        });
        const auto file = MessagePrompts().ChooseFile({.Saving = true,
                                                       .Title = "Save Circuit",
                                                       .Filter = "Track files (*.trk)|*.trk",
                                                       .DefaultName = "oval",
                                                       .Folder = Folder.Path().string(),
                                                       .KeepsEnding = keepsEnding});
        return file ? file->filename().string() : "none";
    }

    /// What comes of a dialog for a build plan that the user deals with so.
    std::optional<std::filesystem::path> SavedPlan(const std::function<void(QFileDialog&, QLineEdit&)>& deal) {
        WhenShown<QFileDialog>([&](QFileDialog& dialog) { deal(dialog, *dialog.findChild<QLineEdit*>()); });
        return MessagePrompts().ChooseFile({.Saving = true,
                                            .Title = "Build Plan",
                                            .Filter = "Web page (*.html)|*.html|PDF (*.pdf)|*.pdf",
                                            .DefaultName = "oval-plan.html",
                                            .Folder = Folder.Path().string()});
    }

    static void ChooseKind(QFileDialog& dialog, int kind) {
        auto& kinds = *dialog.findChild<QComboBox*>("fileTypeCombo");
        kinds.setCurrentIndex(kind);
        emit kinds.textActivated(kinds.currentText());
        emit kinds.activated(kind);
    }

    TemporaryFolder Folder;
};

TEST_F(FileDialogs, ASavedFileGetsTheEndingThatItLacks) {
    EXPECT_EQ(SavedAs("club"), "club.trk");
    EXPECT_EQ(SavedAs("club 2.0"), "club 2.0.trk");
    EXPECT_EQ(SavedAs("club.trk"), "club.trk");
    EXPECT_EQ(SavedAs("CLUB.TRK"), "CLUB.TRK");
    EXPECT_EQ(SavedAs("club.dxf"), "club.dxf.trk");
}

TEST_F(FileDialogs, AnEndingThatTellsAFormatIsKeptForWhoeverJudgesIt) {
    EXPECT_EQ(SavedAs("club.SVG", true), "club.SVG");
    EXPECT_EQ(SavedAs("club.jpg", true), "club.jpg");
    EXPECT_EQ(SavedAs("club 2.0", true), "club 2.0.trk");
    EXPECT_EQ(SavedAs("club", true), "club.trk");
    EXPECT_EQ(SavedAs("club.circuit", true), "club.circuit.trk") << "longer than endings are";
}

TEST_F(FileDialogs, AProposedNameTakesTheEndingOfTheKindThatIsChosen) {
    const auto file = SavedPlan([](QFileDialog& dialog, const QLineEdit& name) {
        ChooseKind(dialog, 1);
        EXPECT_EQ(name.text(), "oval-plan.pdf");
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
    ASSERT_TRUE(file);
    EXPECT_EQ(file->filename().string(), "oval-plan.pdf");
}

TEST_F(FileDialogs, WithoutANameTheKindThatIsChosenChangesNeitherNameNorFolder) {
    SavedPlan([this](QFileDialog& dialog, QLineEdit& name) {
        name.clear();
        ChooseKind(dialog, 1);
        EXPECT_EQ(name.text(), "");
        EXPECT_EQ(PathFromText(dialog.directory().absolutePath().toStdString()), Folder.Path());
    });
}

TEST_F(FileDialogs, AKindThatWasNotOfferedLeavesTheName) {
    SavedPlan([](QFileDialog& dialog, const QLineEdit& name) {
        emit dialog.filterSelected("Photographs (*.jpg)");
        EXPECT_EQ(name.text(), "oval-plan.html");
    });
}

TEST_F(FileDialogs, AnExistingFileIsGivenWithoutAQuestionOfTheDialog) {
    WriteBytes(Folder / "oval.trk", "");
    EXPECT_EQ(SavedAs("oval"), "oval.trk");
}

TEST_F(FileDialogs, ADialogShowsTitleFilterAndDefaultNameAndCancelGivesNoFile) {
    WhenShown<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save Circuit");
        EXPECT_EQ(PathFromText(dialog.directory().absolutePath().toStdString()), Folder.Path());
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Track files (*.trk)"});
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "oval.trk");
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
    });
    EXPECT_EQ(MessagePrompts().ChooseFile({.Saving = true,
                                           .Title = "Save Circuit",
                                           .Filter = "Track files (*.trk)|*.trk",
                                           .DefaultName = "oval",
                                           .Folder = Folder.Path().string()}),
              std::nullopt);
}

TEST_F(FileDialogs, ADialogThatOpensTakesExistingFilesOfTheFiltersKinds) {
    WriteBytes(Folder / "plan.gif", "");
    WhenShown<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"All files (*.bmp *.gif)", "GIF (*.gif)"}));
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "");
        dialog.findChild<QLineEdit*>()->setText("plan.gif");
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
    });
    EXPECT_EQ(MessagePrompts().ChooseFile({.Saving = false,
                                           .Title = "Select Background Image",
                                           .Filter = "All files (*.bmp,*.gif)|*.bmp;*.gif|GIF (*.gif)|*.gif",
                                           .DefaultName = "",
                                           .Folder = Folder.Path().string()}),
              Folder / "plan.gif");
}

TEST(MessagePrompts, TellWrittenShowsThePathAndOpensItsFolder) {
    const TemporaryFolder folder;
    std::filesystem::path opened;
    MessagePrompts prompts;
    prompts.OpenFolder = [&](const std::filesystem::path& path) { opened = path; };
    const auto press = [&](const QString& caption) {
        WhenShown<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.text().toStdString(), TextFromPath(folder / "x.pdf") + " is written.");
            EXPECT_EQ(box.icon(), QMessageBox::Information);
            for (QAbstractButton* const button : box.buttons()) {
                if (button->text().remove('&') == caption) QTest::mouseClick(button, Qt::LeftButton);
            }
        });
        prompts.TellWritten(folder / "x.pdf", "");
    };

    press("OK");
    EXPECT_TRUE(opened.empty());
    press("Open Folder");
    EXPECT_EQ(opened, folder.Path());
}

} // namespace pistaro

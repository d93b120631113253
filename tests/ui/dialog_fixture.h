// A dialog of a session with a scripted user and a settings file of its own, and its controls by their names.
#pragma once

#include "commands/session.h"
#include "storage/settings_file.h"
#include "support/pieces.h"
#include "support/scripted_prompts.h"
#include "support/settings_bytes.h"
#include "support/temporary_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace pistaro {

template <typename Dialog>
class DialogTest : public testing::Test {
protected:
    DialogTest() { Open(); }

    /// Opens the dialog on the project as it stands.
    void Open() {
        dialog_ = std::make_unique<Dialog>(*session_);
        dialog_->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog_.get()));
    }

    /// The same with another settings file, or none.
    void OpenWithSettingsAt(const std::filesystem::path& file) {
        dialog_.reset();
        Project project = project_;
        session_.emplace(Pieces(), prompts_, std::move(project), file);
        Open();
    }

    template <typename Control>
    Control& Find(const char* name, int index = 0) const {
        for (Control* const control : dialog_->template findChildren<Control*>(name)) {
            if (control->property("Index").toInt() == index) return *control;
        }
        throw std::logic_error(std::string("there is no control ") + name);
    }

    void Press(const char* name, int index = 0) const {
        auto& button = Find<QAbstractButton>(name, index);
        QTest::mouseClick(&button, Qt::LeftButton, {}, {std::min(10, button.width() / 2), button.height() / 2});
    }

    std::string Text(const char* box, int index = 0) const { return Find<QLineEdit>(box, index).text().toStdString(); }
    std::string Label(const char* label) const { return Find<QLabel>(label).text().toStdString(); }

    /// Types over what stands in a box.
    void Type(const char* name, const char* text, int index = 0) const {
        auto& box = Find<QLineEdit>(name, index);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }

    std::string OnDisk() const { return BytesOf(file_); }

    bool IsOpen() const { return dialog_->isVisible(); }

    /// Every control stands within its window, and the window fits on a small screen.
    void ExpectNothingClipped() const {
        EXPECT_LE(dialog_->width(), 1024);
        EXPECT_LE(dialog_->height(), 700);
        for (const QWidget* const child : dialog_->template findChildren<QWidget*>()) {
            if (!child->isVisible() || child->objectName().startsWith("qt_")) continue;
            const QRect place(child->mapTo(dialog_.get(), QPoint(0, 0)), child->size());
            EXPECT_TRUE(dialog_->rect().contains(place)) << child->objectName().toStdString();
            if (qobject_cast<const QLabel*>(child) != nullptr) {
                EXPECT_GE(child->width(), child->sizeHint().width()) << child->objectName().toStdString();
            }
        }
    }

    const std::vector<Message> saved_{{Icon::Information, "Settings saved."}};

    TemporaryFolder folder_;
    std::filesystem::path file_ = Written(folder_ / "corvel.ini");
    ScriptedPrompts prompts_;
    std::optional<Session> session_{std::in_place, Pieces(), prompts_, StartUp(ReadSettings(Pieces(), file_)), file_};
    Project& project_ = session_->Project; ///< also of a later session, which takes the same place
    std::unique_ptr<Dialog> dialog_;

private:
    /// A settings file with every section.
    static std::filesystem::path Written(const std::filesystem::path& file) {
        WriteBytes(file, WholeSettings());
        return file;
    }
};

} // namespace pistaro

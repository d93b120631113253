// The main window with a scripted user, and its controls by their names.
#pragma once

#include "storage/settings_file.h"
#include "support/chain.h"
#include "support/scripted_prompts.h"
#include "ui/frmCorvel.h"

#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace pistaro {

class WindowTest : public ::testing::Test {
protected:
    /// Opens the window on a project.
    void Open(pistaro::Project project = StartUp(InitialSettings(Pieces())),
              const std::filesystem::path& settingsPath = {}) {
        Window.reset();
        Session.emplace(Pieces(), Prompts, std::move(project), settingsPath);
        Window = std::make_unique<frmCorvel>(*Session);
        Window->show();
        Window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
    }

    template <typename Control>
    Control& Find(const std::string& name, const std::string& tag = "") {
        for (Control* const control : Window->findChildren<Control*>(QString::fromStdString(name))) {
            if (control->property("Tag").toString().toStdString() == tag) return *control;
        }
        throw std::logic_error("there is no control " + name + " " + tag);
    }

    QAbstractButton& Button(const std::string& name, const std::string& tag = "") {
        return Find<QAbstractButton>(name, tag);
    }
    QAbstractButton& Piece(const std::string& code) { return Button("cmdElement", code); }
    QAction& Entry(const std::string& name, const std::string& tag = "") { return Find<QAction>(name, tag); }
    QListWidget& List() { return Find<QListWidget>("lstTrack"); }
    QWidget& Picture() { return Find<QWidget>("picCircuit"); }
    CircuitView& Canvas() { return Window->Canvas(); }

    void Click(const std::string& name, const std::string& tag = "", int times = 1) {
        for (int i = 0; i < times; ++i)
            QTest::mouseClick(&Button(name, tag), Qt::LeftButton, {}, PlaceIn(Button(name, tag)));
    }

    /// Opens the entry's menu and clicks the entry.
    void Choose(const std::string& name, const std::string& tag = "") {
        QAction& entry = Entry(name, tag);
        for (QMenu* const menu : Window->findChildren<QMenu*>()) {
            if (!menu->actions().contains(&entry)) continue;
            menu->popup(QPoint(0, 0));
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&entry).center());
            menu->close();
            return;
        }
        throw std::logic_error(name + " stands in no menu");
    }

    /// Presses and releases a mouse button on the drawing at a point in cm.
    void ClickDrawing(float x, float y) {
        QTest::mouseClick(&Picture(), Qt::LeftButton, {}, Canvas().PlaceOf({x, y}).toPoint());
    }

    void ClickLine(int index) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualItemRect(List().item(index)).center());
    }

    std::vector<std::string> Lines() {
        std::vector<std::string> lines;
        for (int row = 0; row < List().count(); ++row)
            lines.push_back(List().item(row)->text().toStdString());
        return lines;
    }

    std::string Text(const std::string& label) { return Find<QLabel>(label).text().toStdString(); }
    std::string Codes(int track = 0) { return CodesOf(Project.Design.Circuit.Tracks[static_cast<std::size_t>(track)]); }

    /// Where a button reacts to the mouse: a radio button only where it is drawn.
    static QPoint PlaceIn(const QWidget& button) { return {std::min(10, button.width() / 2), button.height() / 2}; }

    ScriptedPrompts Prompts;
    std::optional<pistaro::Session> Session{std::in_place, Pieces(), Prompts, StartUp(InitialSettings(Pieces())), ""};
    pistaro::Project& Project = Session->Project; ///< also of every later session, which takes the same place
    std::unique_ptr<frmCorvel> Window;
};

} // namespace pistaro

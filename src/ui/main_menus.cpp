// Each menu is filled by its own function.
#include "ui/main_menus.h"

#include "editor/building.h"

#include <QMenuBar>

namespace pistaro {

MainMenus::MainMenus(QMainWindow& window, Workbench& workbench, CommandControls& controls)
    : window_(window), workbench_(workbench), controls_(controls) {
    const auto menu = [&](const char* title, void (MainMenus::*fill)(QMenu&)) {
        QMenu* const added = window_.menuBar()->addMenu(title);
        added->setToolTipsVisible(true);
        (this->*fill)(*added);
        added->menuAction()->setVisible(!added->isEmpty());
    };
    menu("&Circuit", &MainMenus::FillCircuit);
    menu("&Track", &MainMenus::FillTrack);
    menu("&Pieces", &MainMenus::FillPieces);
    menu("&View", &MainMenus::FillView);
    menu("&Settings", &MainMenus::FillSettings);
    menu("&Reports", &MainMenus::FillReports);
    menu("&Help", &MainMenus::FillHelp);
}

void MainMenus::FillCircuit(QMenu& menu) {
    controls_.AddEntry(menu, "new");
    controls_.AddEntry(menu, "load");
    controls_.AddEntry(menu, "save");
    menu.addSeparator();
    controls_.AddEntry(menu, "quit");
}

void MainMenus::FillTrack(QMenu& menu) {
    controls_.AddEntry(menu, "mirror");
    controls_.AddEntry(menu, "invert");
}

void MainMenus::FillPieces(QMenu& menu) {
    mnuScalextricNinco_ = controls_.AddEntry(menu, "system");
    menu.addSection("Replace the selected piece by");
    for (const std::string_view variant : Variants)
        controls_.AddEntry(menu, "replace " + std::string(variant));
}

void MainMenus::FillView(QMenu&) {}
void MainMenus::FillSettings(QMenu&) {}
void MainMenus::FillReports(QMenu&) {}
void MainMenus::FillHelp(QMenu&) {}

QAction* MainMenus::Add(QMenu& menu, const EntryText& text, const std::function<void()>& work) {
    QAction* const action = menu.addAction(text.Caption);
    action->setObjectName(text.Name);
    action->setToolTip(text.Tip);
    action->setShortcut(QKeySequence(text.Key));
    QObject::connect(action, &QAction::triggered, action, [this, work] { workbench_.Do(work); });
    return action;
}

void MainMenus::Refresh() {
    const bool scalextric = workbench_.Design.System == TrackSystem::Scalextric;
    mnuScalextricNinco_->setText(scalextric ? "Use Ninco Track" : "Use Scalextric Track");
}

} // namespace pistaro

// Each menu is filled by its own function.
#include "ui/main_menus.h"

#include "editor/building.h"
#include "report/viewer.h"
#include "ui/frmColors.h"
#include "ui/frmDrawArea.h"
#include "ui/frmStats.h"
#include "ui/picture_commands.h"

#include <QMenuBar>

namespace pistaro {

MainMenus::MainMenus(QMainWindow& window, Workbench& workbench, CommandControls& controls, CircuitView& view)
    : window_(window), workbench_(workbench), controls_(controls), view_(view) {
    const auto menu = [&](const char* title, void (MainMenus::*fill)(QMenu&)) {
        QMenu* const added = window_.menuBar()->addMenu(title);
        added->setToolTipsVisible(true);
        (this->*fill)(*added);
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
    controls_.AddEntry(menu, "quit", [this] { window_.close(); }); // closing the window runs the row
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

void MainMenus::FillView(QMenu& menu) {
    Add(menu, {"mnuBackgroundSelect", "Select &Background…", "Lay a picture behind the circuit, such as a floor plan"},
        [this] { SelectBackground(workbench_, view_); });
    mnuBackgroundClear_ =
        Add(menu, {"mnuBackgroundClear", "&Clear Background", ""}, [this] { view_.SetBackground({}); });
}

void MainMenus::FillSettings(QMenu& menu) {
    AddDialog<frmDrawArea>(
        menu, {"mnuDrawArea", "&Draw Area…", "Set the window, the grid, the units and your room's outline", "F2"});
    AddDialog<frmColors>(menu, {"mnuColors", "&Colours…", "Choose the colours of the drawing"});
    Add(menu, {"mnuTrackStock", "&Loose Track…", "Tell how many pieces you own, and what one costs", "F3"},
        [this] { ShowStock(); });
}

void MainMenus::FillReports(QMenu& menu) {
    AddDialog<frmStats>(menu, {"mnuStats", "&Statistics…", "Show lengths, prices and what is to buy", "F4"});
    Add(menu,
        {"mnuReport", "Design &Guide", "Write the guide, a page with the layout and every piece in its order",
         "Ctrl+G"},
        [this] { ShowGuide(workbench_, view_); });
    Add(menu, {"mnuWMF", "Save &Picture", "Write the drawing into the working directory as track.bmp", "Ctrl+P"},
        [this] { SavePicture(workbench_.Design, view_); });
}

void MainMenus::FillHelp(QMenu& menu) {
    Add(menu, {"mnuManual", "&Manual", "Open the manual in the working directory", "F1"},
        [this] { OpenManual(workbench_.Design); });
    Add(menu, {"mnuAbout", "&About Pistaro", "Tell what this program is"}, [this] { ShowAbout(); });
}

void MainMenus::ShowAbout() {
    if (!about_) about_ = new frmAbout(&window_);
    about_->show();
    about_->raise();
    about_->activateWindow();
}

void MainMenus::ShowStock() {
    if (!stock_) {
        stock_ = new frmStock(workbench_.Design, workbench_.Words, &window_);
        stock_->setAttribute(Qt::WA_DeleteOnClose);
        stock_->Saved = [this] { workbench_.Changed(); };
    }
    stock_->show();
    stock_->raise();
    stock_->activateWindow();
}

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
    mnuBackgroundClear_->setEnabled(view_.HasBackground());
    mnuBackgroundClear_->setToolTip(view_.HasBackground() ? "Take the picture behind the circuit away"
                                                          : "There is no picture behind the circuit.");
}

} // namespace pistaro

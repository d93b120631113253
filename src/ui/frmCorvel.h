// The main window: three columns, menus and a status bar around one project.
#pragma once

#include "ui/circuit_panel.h"
#include "ui/command_controls.h"
#include "ui/main_menus.h"
#include "ui/piece_palette.h"
#include "ui/track_panel.h"

#include <QMainWindow>

namespace pistaro {

class frmCorvel : public QMainWindow {
public:
    frmCorvel(Project& project, Prompts& prompts);

    /// Replaces the circuit by a file's, as Load does when its dialog has been answered.
    void Open(const std::filesystem::path& file);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Brings the drawing and every control up to date.
    void Refresh();

    Workbench workbench_;
    CommandControls controls_;
    PiecePalette* const palette_;
    CircuitPanel* const circuit_;
    TrackPanel* const track_;
    MainMenus menus_;
    QLabel* const status_;
    bool closing_ = false;
};

} // namespace pistaro

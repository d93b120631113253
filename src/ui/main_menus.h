// The window's menu bar: rows of the command table, and the entries that open dialogs.
#pragma once

#include "ui/circuit_view.h"
#include "ui/command_controls.h"
#include "ui/frmAbout.h"
#include "ui/frmStock.h"

#include <QMainWindow>
#include <QPointer>

namespace pistaro {

/// How an entry that is no row of the command table looks.
struct EntryText {
    const char* Name;    ///< the object name: "mnuStats"
    const char* Caption; ///< with its mnemonic: "&Statistics…"
    const char* Tip;
    const char* Key = "";
};

class MainMenus {
public:
    MainMenus(QMainWindow& window, Workbench& workbench, CommandControls& controls, CircuitView& view);

    /// What no row tells: the caption of the track system switch, and whether there is a background to clear.
    void Refresh();

private:
    void FillCircuit(QMenu& menu);
    void FillTrack(QMenu& menu);
    void FillPieces(QMenu& menu);
    void FillView(QMenu& menu);
    void FillSettings(QMenu& menu);
    void FillReports(QMenu& menu);
    void FillHelp(QMenu& menu);

    /// Shows the About box, which then stays beside the window.
    void ShowAbout();

    /// Shows the loose-track dialog, which then stays beside the window; its Save redraws the circuit.
    void ShowStock();

    /// An entry whose work is contained, and the circuit redrawn after it.
    QAction* Add(QMenu& menu, const EntryText& text, const std::function<void()>& work);

    /// An entry that shows a modal dialog.
    template <typename Dialog>
    void AddDialog(QMenu& menu, const EntryText& text) {
        Add(menu, text, [this] { Dialog(workbench_.Design, workbench_.Words, &window_).exec(); });
    }

    QMainWindow& window_;
    Workbench& workbench_;
    CommandControls& controls_;
    CircuitView& view_;
    QAction* mnuScalextricNinco_ = nullptr;
    QAction* mnuBackgroundClear_ = nullptr;
    QPointer<frmAbout> about_;
    QPointer<frmStock> stock_;
};

} // namespace pistaro

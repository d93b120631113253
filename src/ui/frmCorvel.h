// The main window: three columns, menus and a status bar around one session.
#pragma once

#include "ui/building_hand.h"
#include "ui/canvas_keys.h"
#include "ui/checks_dock.h"
#include "ui/circuit_panel.h"
#include "ui/command_controls.h"
#include "ui/dialogs.h"
#include "ui/elided_label.h"
#include "ui/history_dock.h"
#include "ui/job_bar.h"
#include "ui/money_dock.h"
#include "ui/picture_bar.h"
#include "ui/piece_palette.h"
#include "ui/side_column.h"
#include "ui/suggester.h"
#include "ui/tour.h"
#include "ui/track_panel.h"

#include <QMainWindow>

#include <optional>
#include <vector>

namespace pistaro {

class frmCorvel : public QMainWindow {
public:
    explicit frmCorvel(Session& session);
    ~frmCorvel() override;

    /// Replaces the circuit by a file's, as Load does when its dialog has been answered.
    void Open(const std::filesystem::path& file);

    /// The drawing area, for what is shown above the circuit.
    CircuitView& Canvas() { return circuit_->View(); }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* NewHandle(const char* id, Qt::Edge side);
    QWidget* StatusLine();

    /// Puts checks and money below the drawing and the history beside it, hidden at first, and has them shown by their
    /// commands.
    void AddPanels();
    void MakeRoom();
    void ShowLanes();

    /// Building by hand, and the tour that teaches it.
    void AddHand();

    /// Has the drawing redrawn, and brings every control up to date that may show what has changed.
    void Refresh(const Changes& changes);
    void ShowColumns();
    void ShowPlace();
    void ShowStatus();

    /// Asks about the circuit's file when another program changed it.
    void CheckFileOnDisk();

    Session& session_;
    CommandControls controls_;
    PiecePalette* const palette_;
    CircuitPanel* const circuit_;
    QMainWindow* const middle_; ///< the drawing with its panels, between the columns
    TrackPanel* const track_;
    SideColumn* const pieceColumn_;
    SideColumn* const trackColumn_;
    CanvasPointer* const pointer_;
    SuggestionBar* const suggestions_;
    BalanceBar* const balance_;
    PictureBar* const picture_;
    Suggester suggester_;
    Dialogs dialogs_;
    JobBar* const jobBar_;
    QLabel* const status_;
    ElidedLabel* const figures_;
    QLabel* const place_;
    std::optional<WorldPoint> pointedAt_; ///< of the drawing
    ChecksDock* const checks_;
    MoneyDock* const money_;
    HistoryDock* const history_;
    std::vector<QDockWidget*> aside_; ///< panels that make room for a while, the one in front last
    BuildingHand* hand_ = nullptr;
    Tour* tour_ = nullptr;
    bool closing_ = false;
    Observation observation_;
};

} // namespace pistaro

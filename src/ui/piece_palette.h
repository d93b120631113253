// The window's left column: a button for every basic piece, and what goes with building.
#pragma once

#include "ui/command_controls.h"
#include "ui/mode_switch.h"
#include "ui/piece_button.h"
#include "ui/piece_finder.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>
#include <map>

namespace pistaro {

class FoldOut;
struct PieceFrame;

class PiecePalette : public QWidget {
public:
    PiecePalette(Session& session, CommandControls& controls);

    /// Shows the frames of the track system that is offered, the mode in force and what is left of each piece.
    void Refresh();

    /// Leads the keyboard to the line that pieces are looked for in.
    void FindPiece() { finder_.Begin(); }

    /// Called with the code of the piece that the mouse is on in a fold-out or among those found, empty when it leaves.
    std::function<void(const std::string&)> PointedAt = [](const std::string&) {};

    /// Called with the code of the piece that the mouse has dragged out of one of these.
    std::function<void(const std::string&)> TakenUp = [](const std::string&) {};

    /// The buttons of all basic pieces.
    std::vector<QToolButton*> Pieces() const { return {pieces_.begin(), pieces_.end()}; }

private:
    QWidget* Frame(const PieceFrame& frame);
    QWidget* PairOfFrames(QWidget* left, QWidget* right);
    FoldOut* NewFoldOut(const CatalogueEntry& basic, const std::vector<int>& specials);
    PieceButton* AddPieceButton(QGroupBox& frame, const CatalogueEntry& piece, int row, int column);

    /// What cmdInsert does now.
    const Command& ModeSwitchRow() const;

    using Count = int (*)(const Catalogue&, const Circuit&, const Stock&, std::string_view);
    void ShowNumber(QToolButton& button, Count count);
    void ShowAllRemaining();
    void RestoreCaptions();
    void ShowFrames();

    Session& session_;
    CommandControls& controls_;
    QVBoxLayout* const column_;
    ModeSwitch* const cmdInsert_;
    PieceFinder finder_;
    QPushButton* const cmdSeeRemaining_;
    const std::map<TrackSystem, QButtonGroup*> keyFields_;
    std::vector<PieceButton*> pieces_;
    std::vector<std::pair<QWidget*, TrackSystem>> frames_; ///< and the pairs of them
};

} // namespace pistaro

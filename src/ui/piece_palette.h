// The window's left column: a button for every basic piece, and what goes with building.
#pragma once

#include "ui/command_controls.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <map>

namespace pistaro {

struct PieceFrame;

class PiecePalette : public QWidget {
public:
    PiecePalette(Session& session, CommandControls& controls);

    /// Shows the frames of the track system that is offered and the mode that cmdInsert switches to.
    void Refresh();

    /// The buttons of all basic pieces.
    const std::vector<QToolButton*>& Pieces() const { return pieces_; }

private:
    QWidget* Frame(const PieceFrame& frame);
    QWidget* PairOfFrames(QWidget* left, QWidget* right);
    QToolButton* AddPieceButton(QGroupBox& frame, const CatalogueEntry& piece, int row, int column);

    /// What cmdInsert does now.
    const Command& ModeSwitch() const;

    using Count = int (*)(const Catalogue&, const Circuit&, const Stock&, std::string_view);
    void ShowNumber(QToolButton& button, Count count);
    void ShowAllRemaining();
    void RestoreCaptions();

    Session& session_;
    CommandControls& controls_;
    QVBoxLayout* const column_;
    QPushButton* const cmdInsert_;
    QPushButton* const cmdSeeRemaining_;
    const std::map<TrackSystem, QButtonGroup*> keyFields_;
    std::vector<QToolButton*> pieces_;
    std::vector<std::pair<QWidget*, TrackSystem>> frames_; ///< and the pairs of them
};

} // namespace pistaro

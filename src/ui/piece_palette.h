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

class PiecePalette : public QWidget {
public:
    PiecePalette(Workbench& workbench, CommandControls& controls);

    /// Shows the frames of the track system that is offered and the mode that cmdInsert switches to.
    void Refresh();

private:
    QWidget* Frame(const char* name, const QString& title, TrackSystem system, int columns,
                   std::initializer_list<const char*> codes);
    QWidget* PairOfFrames(QWidget* left, QWidget* right);
    QToolButton* AddPieceButton(QGroupBox& frame, const std::string& code, int row, int column);

    /// What cmdInsert does now.
    const Command& ModeSwitch() const;

    void ShowAllRemaining();
    void RestoreCaptions();

    Workbench& workbench_;
    CommandControls& controls_;
    QVBoxLayout* const column_;
    QPushButton* const cmdInsert_;
    QPushButton* const cmdSeeRemaining_;
    const std::map<TrackSystem, QButtonGroup*> keyFields_;
    std::vector<QToolButton*> pieces_;
    std::vector<std::pair<QWidget*, TrackSystem>> frames_;
};

} // namespace pistaro

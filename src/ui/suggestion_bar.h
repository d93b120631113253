// The strip below the drawing that goes through ways to close the track, or other pieces for a run of it:
// each with a small picture, the chosen one as a ghost in the drawing.
#pragma once

#include "commands/closing_commands.h"
#include "layout/ground.h"
#include "ui/strip.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

#include <optional>

namespace pistaro {

class SuggestionBar : public Strip {
public:
    /// Its ghosts are shown in the view, which it moves where they would be out of sight.
    SuggestionBar(Session& session, CircuitView& view);

    /// Shows what closes the current track.
    void ShowClosings();

    /// Shows other pieces for the selected elements; the strip's number says how many they are.
    void ShowReplacements();

    /// To be called after each change: what is shown stands for the circuit as it is, so the strip goes.
    void Refresh(const Changes& changes);

protected:
    void Accept() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* Replaced();
    QWidget* Choices();
    void OpenAndFind();
    void Find();
    void ShowGhost();
    Overlay GhostOf(const Suggestion& suggestion) const;
    GroundBox BoxOf(const Suggestion& suggestion) const;
    ClosingOptions Options() const;
    QIcon IconOf(const Suggestion& suggestion) const;

    QLabel* const lblSuggestion_;
    QListWidget* const lstSuggestions_;
    QCheckBox* const chkOwnedOnly_;
    QSpinBox* const spnMostPieces_;
    QSpinBox* const spnMostRemoved_;
    QDoubleSpinBox* const spnTolerance_;
    QSpinBox* const spnRun_;
    QComboBox* const cboWish_;
    QPushButton* const cmdLay_;
    int firstReplaced_ = 0; ///< element of the current track
    bool isReplacing_ = false;
    bool mendsAtNeed_ = false; ///< suggestions take pieces out though none are asked to, as no other is free of faults
    std::vector<Suggestion> suggestions_;
};

} // namespace pistaro

// Circuits from a box of pieces: what they are laid from and where, those that are found, and what becomes of them.
#pragma once

#include "commands/box_search.h"
#include "commands/laying_commands.h"
#include "ui/piece_counts.h"
#include "ui/score_weights_box.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QListWidget>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>

#include <array>

namespace pistaro {

/// Stays beside the window. The search runs on a thread of its own; what it finds is shown as it is found.
class frmBox : public QDialog {
public:
    enum class Purpose {
        Box,        ///< begins with the pieces that are owned
        Variations, ///< begins with the pieces of the design, of which the selected ones can be kept
    };

    frmBox(Session& session, Purpose purpose, QWidget* parent = nullptr);

    Purpose WhatFor() const { return purpose_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* Fields();
    QLayout* BoxFields();
    QWidget* RoomFields();
    QWidget* MustHaveFields();
    QLayout* SearchFields();
    QLayout* Circuits();
    QLayout* Buttons();
    void AddSet();
    void OfferRoom();
    void OfferPart();

    BoxWish Wish() const;
    void Search();
    void StopOrGoOn();
    void Hear();
    void ShowFound();
    void ShowStanding();
    void ShowParts();
    void FillLine(QListWidgetItem& line, std::size_t place);
    void OpenChosen();
    void KeepChosen();
    std::vector<std::size_t> Chosen() const;

    Session& session_;
    const Purpose purpose_;
    PieceCounts* lstBox_ = nullptr;
    QComboBox* cboSets_ = nullptr;
    BoxedSets sets_;
    QRadioButton *optRoomDesign_ = nullptr, *optRoomArea_ = nullptr;
    QSpinBox *spnWidth_ = nullptr, *spnDepth_ = nullptr, *spnCount_ = nullptr;
    QLineEdit* txtSeed_ = nullptr;
    std::array<QCheckBox*, 4> mustHaves_{};
    QCheckBox* chkKeepPart_ = nullptr;
    std::optional<KeptPart> part_;  ///< of the design, as it was selected
    int middleX_ = 0, middleY_ = 0; ///< of an area as the room, cm
    QListWidget* lstCircuits_ = nullptr;
    ScoreWeightsBox* weights_ = nullptr;
    QLabel* lblFound_ = nullptr;
    QPushButton *cmdSearch_ = nullptr, *cmdStop_ = nullptr, *cmdCancelSearch_ = nullptr, *cmdOpen_ = nullptr,
                *cmdKeep_ = nullptr;
    BoxWish wish_;                  ///< of the search whose circuits are shown
    Design room_;                   ///< that they lie in
    std::optional<Circuit> opened_; ///< that stands in the window because it was opened here
    std::vector<QIcon> pictures_;   ///< by place among those found; those never shown have none
    QTimer showing_;                ///< so that many circuits found at once are shown together
    Observation observation_;
    BoxSearch search_;
};

} // namespace pistaro

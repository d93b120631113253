// Circuits from a box of pieces: what they are laid from and where, those that are found, and what becomes of them.
#pragma once

#include "commands/box_search.h"
#include "ui/box_fields.h"
#include "ui/score_weights_box.h"

#include <QDialog>
#include <QListWidget>
#include <QTimer>

namespace pistaro {

/// Stays beside the window. The search runs on a thread of its own; what it finds is shown as it is found.
class frmBox : public QDialog {
public:
    using Purpose = BoxPurpose;

    frmBox(Session& session, Purpose purpose, QWidget* parent = nullptr);

    Purpose WhatFor() const { return purpose_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* Fields();
    QLayout* SearchButtons();
    QLayout* Circuits();
    QLayout* Buttons();

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
    BoxFields* const fields_;
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

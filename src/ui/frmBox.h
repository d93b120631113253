// Circuits from a box of pieces: what they are laid from and where, those that are found, and what becomes of them.
#pragma once

#include "commands/box_search.h"
#include "ui/box_fields.h"
#include "ui/box_words.h"
#include "ui/circuit_preview.h"
#include "ui/found_banner.h"
#include "ui/found_circuits.h"
#include "ui/score_weights_box.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QTimer>

namespace pistaro {

/// Stays beside the window until one of the circuits is opened, and comes back with all of them. The search runs on a
/// thread of its own; what it finds is shown as it is found.
class frmBox : public QDialog {
public:
    /// Circuits from what is owned, or in the place of the design's track that is `varied`.
    frmBox(Session& session, std::optional<int> varied, QWidget* parent = nullptr);

    /// Whether the design is the one that this window was opened for, or one that was opened from it.
    bool IsAboutTheDesign() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* Fields();
    QLayout* SearchButtons();
    QLayout* Circuits();
    QLayout* Chosen(const QString& entry);
    QLayout* Yours();
    QLayout* Buttons();

    void Search();
    void StopOrContinue();
    void Hear();
    void ShowFound();
    bool IsForAnother(const BoxWish& wish) const;
    bool IsBegunTrack() const;
    bool IsVariedTrackOf(const Circuit& circuit) const;
    Surroundings AroundNow() const;
    QString Heading() const;
    QString StandingWords(const BoxWish& wish, bool isIdle, bool never) const;
    void ShowStanding();
    void ShowSearchButtons(BoxStanding standing, bool isForAnother, const QString& whyNot);
    void ShowProgress();
    MarkedPieces MarksOf(const Track& circuit) const;
    std::vector<CircuitFigure> FiguresOf(const LaidCircuit& circuit) const;
    void ShowChosen();
    void ShowYours() const;
    void ChooseFromYours(WorldPoint place, bool andAllBetween);
    void OpenChosen();
    void KeepChosen();

    Session& session_;
    const std::optional<int> varied_; ///< track
    const Circuit begunWith_;
    BoxFields* const fields_;
    FoundCircuits* const lstCircuits_;
    CircuitPreview* const preview_;
    DesignPicture* const picYours_; ///< the track that is varied; null for a box
    ScoreWeightsBox* const weights_;
    FoundBanner* const banner_;
    QProgressBar* barSearch_ = nullptr;
    QPushButton *cmdSearch_ = nullptr, *cmdStop_ = nullptr, *cmdCancelSearch_ = nullptr, *cmdOpen_ = nullptr,
                *cmdKeep_ = nullptr;
    std::optional<BoxWish> searched_; ///< that the circuits which are shown were searched for
    Surroundings around_;             ///< them
    Track yours_;                     ///< that they vary
    FoundCount count_;                ///< of those that are shown
    std::optional<Circuit> opened_;   ///< that stands in the window because it was opened here
    QElapsedTimer sinceEnd_;          ///< of the last search
    QTimer showing_;                  ///< so that many circuits found at once are shown together
    Observation observation_;
    BoxSearch search_;
};

} // namespace pistaro

// What the checks find, beside the drawing while one works.
#pragma once

#include "checks/finding.h"
#include "checks/mends.h"
#include "commands/session.h"
#include "ui/circuit_view.h"
#include "ui/panel_list.h"

#include <QDockWidget>
#include <QLabel>
#include <QPushButton>

#include <cstddef>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

namespace pistaro {

/// Checks when it is shown, and after each change of the design while it is; marks what is found in the drawing.
class ChecksDock : public QDockWidget {
public:
    ChecksDock(Session& session, CircuitView& view);

    /// To be called when something has changed. Several calls until the window is idle come to one check.
    void Refresh(const Changes& changes);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void SetUpList();
    void CheckLater();
    void Check();
    void List();
    void ListConsequences();
    QTreeWidgetItem* NewLine(std::size_t finding) const;
    QTreeWidgetItem* NewHeading(std::size_t first, std::ptrdiff_t count) const;
    void Choose(const Finding& finding, bool heading);
    void ShowChosen();
    const Command* CureOfChosen() const;
    std::optional<Mend> MendOfChosen() const;
    void Cure();
    void OfferCure();
    void Mark();
    void Show(const Finding& finding);
    void BringPieceIntoView(PieceAddress piece);
    void BringEndsIntoView(int track);
    void ShowCurves(const Finding& finding);
    QString TracksOf(std::string_view rule) const;
    const Finding* Chosen() const;

    Session& session_;
    CircuitView& view_;
    PanelList* const list_;
    QLabel* const summary_;
    QPushButton* const cmdCure_;          ///< above the list, for the chosen line
    std::vector<Finding> all_;            ///< as they are marked
    std::vector<Finding> findings_;       ///< as they are listed: a crossing as one
    std::set<std::string_view> unfolded_; ///< the rules whose findings are listed below their heading
    bool waiting_ = false;                ///< a check is due
};

} // namespace pistaro

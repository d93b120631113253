// The strip below the drawing that shows what would balance the lanes of a track: each change as a line, its pieces in
// the drawing.
#pragma once

#include "checks/balance.h"
#include "commands/session.h"
#include "ui/strip.h"

#include <QComboBox>
#include <QListWidget>

#include <optional>

namespace pistaro {

class BalanceBar : public Strip {
public:
    BalanceBar(Session& session, CircuitView& view);

    /// Changes of the current track, at least one.
    void Show(const Balance& balance);

    /// To be called after each change: what is shown stands for the circuit as it is, so the strip goes.
    void Refresh(const Changes& changes);

    /// The circuit with the changes that it shows; nothing while it is hidden.
    std::optional<Circuit> Shows() const;

protected:
    void Accept() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowProposal();
    void ShowPieces();

    QLabel* const lblBalance_;
    QComboBox* const cboBalance_; ///< the proposals, where there are several
    QListWidget* const lstBalance_;
    QLabel* const lblToBuy_; ///< pieces that the proposal takes and that are not owned
    QLabel* const lblLegend_;
    QPushButton* const cmdBalance_;
    Balance balance_; ///< its steps are those of the chosen proposal
    std::vector<std::vector<BalanceStep>> proposals_;
};

} // namespace pistaro

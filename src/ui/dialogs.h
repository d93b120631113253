// The windows beside the main one.
#pragma once

#include "commands/session.h"
#include "ui/balance_bar.h"
#include "ui/frmAbout.h"
#include "ui/frmBox.h"
#include "ui/frmStock.h"
#include "ui/suggestion_bar.h"

#include <QPointer>

#include <functional>
#include <map>
#include <optional>

namespace pistaro {

class Dialogs : public Windows {
public:
    /// The strips are those below the drawing.
    Dialogs(Session& session, QWidget& window, SuggestionBar& suggestions, BalanceBar& balance);

    void ShowRecovered() override;
    void ShowDrawArea() override;
    void ShowColours() override;
    void ShowStatistics() override;
    void ShowSets() override;
    void ShowBackground(const ScaledBackground& proposed) override;
    void ShowExport() override;
    void ShowPrint() override;
    void ShowBuildPlan() override;
    void PutOnClipboard(const Clipping& clipping) override;
    std::string ClipboardText() override;
    void TellBriefly(const std::string& text) override;

    void ShowSamples() override;
    void FindPiece() override { findPiece_(); }
    void ShowTour() override { showTour_(); }

    /// Has the window itself do these from now on.
    void OfferSearchAndTour(std::function<void()> findPiece, std::function<void()> showTour) {
        findPiece_ = std::move(findPiece);
        showTour_ = std::move(showTour);
    }

    void ShowClosings() override { suggestions_.ShowClosings(); }
    void ShowReplacements() override { suggestions_.ShowReplacements(); }
    void ShowBalance(const Balance& balance) override { balance_.Show(balance); }
    void ShowPurchase(const PurchaseReport& report) override;
    void EnterPrices() override { enterPrices_(); }

    /// Has the window itself do this from now on.
    void OfferPrices(std::function<void()> enterPrices) { enterPrices_ = std::move(enterPrices); }

    /// These stay beside the window, and come once.
    void ShowStock() override;
    void ShowAbout() override;
    void ShowBox() override;
    void ShowVariations() override;

    /// Has a panel shown and hidden by these from now on.
    struct PanelDoor {
        std::function<void()> Toggle;
        std::function<bool()> IsShown;
    };
    void Offer(Panel panel, PanelDoor door) { panels_[panel] = std::move(door); }
    void TogglePanel(Panel panel) override { panels_.at(panel).Toggle(); }
    bool IsPanelShown(Panel panel) const override { return panels_.at(panel).IsShown(); }

private:
    Session& session_;
    QWidget& window_;
    SuggestionBar& suggestions_;
    BalanceBar& balance_;
    QPointer<frmAbout> about_;
    QPointer<frmStock> stock_;
    QPointer<frmBox> box_, variations_;
    std::map<Panel, PanelDoor> panels_;
    std::function<void()> findPiece_, showTour_, enterPrices_;
    std::optional<std::string> clipboard_; ///< its text, until that changes
};

} // namespace pistaro

// The windows that commands open. A script has none.
#pragma once

#include "checks/balance.h"
#include "model/scaled_background.h"
#include "money/purchase_text.h"

#include <string>

namespace pistaro {

/// What can be shown beside the drawing.
enum class Panel {
    Checks,  ///< what is wrong with the design
    Money,   ///< what its pieces cost
    History, ///< the steps that led to it
    Picture, ///< how the picture under the circuit is dragged and faded, while it is
};

/// What is copied, in the forms that other programs take.
struct Clipping {
    std::string Text, Png, Svg;
};

class Windows {
public:
    virtual ~Windows() = default;

    virtual void ShowRecovered() = 0;
    virtual void ShowDrawArea() = 0;
    virtual void ShowColours() = 0;
    virtual void ShowStock() = 0;
    virtual void ShowStatistics() = 0;
    virtual void ShowAbout() = 0;
    virtual void ShowSets() = 0;
    virtual void TogglePanel(Panel panel) = 0;
    virtual bool IsPanelShown(Panel panel) const = 0;
    virtual void ShowSamples() = 0;

    /// Leads the keyboard to the line that pieces are looked for in.
    virtual void FindPiece() = 0;

    /// Walks through a first oval, of which nothing is laid yet.
    virtual void ShowTour() = 0;

    /// What closes the current track, and other pieces for some of it: to be gone through and laid.
    virtual void ShowClosings() = 0;
    virtual void ShowReplacements() = 0;

    /// Changes that balance the lanes of the current track: to be looked at and done.
    virtual void ShowBalance(const Balance& balance) = 0;

    /// What is to be bought.
    virtual void ShowPurchase(const PurchaseReport& report) = 0;

    /// Leads the keyboard to the first price that something missing lacks.
    virtual void EnterPrices() = 0;

    /// Circuits from pieces at hand; others from the pieces of the design.
    virtual void ShowBox() = 0;
    virtual void ShowVariations() = 0;

    /// Where a picture is to lie under the circuit, and how large it is; its size may be open yet.
    virtual void ShowBackground(const ScaledBackground& proposed) = 0;

    virtual void ShowExport() = 0;
    virtual void ShowPrint() = 0;
    virtual void ShowBuildPlan() = 0;
    virtual void PutOnClipboard(const Clipping& clipping) = 0;
    virtual std::string ClipboardText() = 0;

    /// Tells for a few seconds what was done, where nothing else shows it.
    virtual void TellBriefly(const std::string& text) = 0;
};

} // namespace pistaro

// Windows that nobody sees: they write down which of them was opened.
#pragma once

#include "commands/windows.h"

#include <string>

namespace pistaro {

class NamedWindows : public Windows {
public:
    std::string Opened; ///< each with a blank after it
    ScaledBackground Background;
    std::string Brief; ///< what was told last

    void ShowRecovered() override { Opened += "recovered "; }
    void ShowDrawArea() override { Opened += "draw area "; }
    void ShowColours() override { Opened += "colours "; }
    void ShowStock() override { Opened += "stock "; }
    void ShowStatistics() override { Opened += "statistics "; }
    void ShowAbout() override { Opened += "about "; }
    void ShowSets() override { Opened += "sets "; }
    void TogglePanel(Panel panel) override { Opened += "panel " + std::to_string(static_cast<int>(panel)) + " "; }
    bool IsPanelShown(Panel) const override { return false; }
    void ShowSamples() override { Opened += "samples "; }
    void FindPiece() override { Opened += "find piece "; }
    void ShowTour() override { Opened += "tour "; }
    void ShowClosings() override { Opened += "closings "; }
    void ShowReplacements() override { Opened += "replacements "; }
    void ShowBalance(const Balance&) override { Opened += "balance "; }
    void ShowPurchase(const PurchaseReport&) override { Opened += "purchase "; }
    void EnterPrices() override { Opened += "enter prices "; }
    void ShowBox() override { Opened += "box "; }
    void ShowVariations() override { Opened += "variations "; }
    void ShowBackground(const ScaledBackground& proposed) override {
        Opened += "background ";
        Background = proposed;
    }
    void ShowExport() override { Opened += "export "; }
    void ShowPrint() override { Opened += "print "; }
    void ShowBuildPlan() override { Opened += "build plan "; }
    void PutOnClipboard(const Clipping& clipping) override { Opened += "copy " + clipping.Text + " "; }
    std::string ClipboardText() override { return "C160 x2"; }
    void TellBriefly(const std::string& text) override { Brief = text; }
};

} // namespace pistaro

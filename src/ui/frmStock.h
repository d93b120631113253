// The loose-track dialog: how many pieces of each product the user owns, and the best price for one.
#pragma once

#include "editor/owned_track.h"
#include "model/prompts.h"

#include <QDialog>
#include <QLineEdit>

#include <functional>

class QGroupBox;

namespace pistaro {

/// Modeless. OK closes it and loses what was typed.
class frmStock : public QDialog {
public:
    frmStock(Project& project, Prompts& prompts, QWidget* parent = nullptr);

    std::function<void()> Saved; ///< called when counts and prices have changed, before the dialog closes

    /// Fills the boxes by their Tags. A Tag that stands for no product is told and ends the program.
    void Load();

private:
    QGroupBox* NewFrame(const StockFrame& frame, int firstBox);
    QLayout* Buttons();
    void Save();

    Project& project_;
    Prompts& prompts_;
    std::array<QLineEdit*, CatalogueShapeCount> txtDsp_{};
    std::array<QLineEdit*, CatalogueShapeCount> txtPrc_{};
};

} // namespace pistaro

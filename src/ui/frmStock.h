// The loose-track dialog: how many pieces of each product the user owns, and the best price for one.
#pragma once

#include "commands/session.h"
#include "editor/owned_track.h"

#include <QDialog>
#include <QLineEdit>

#include <vector>

class QGroupBox;

namespace pistaro {

/// Modeless. OK closes it and loses what was typed.
class frmStock : public QDialog {
public:
    explicit frmStock(Session& session, QWidget* parent = nullptr);

    /// Fills the boxes by their Tags. A Tag that stands for no product is told and ends the program.
    void Load();

private:
    QGroupBox* NewFrame(StockFrame frame);
    QLayout* Buttons();
    void Save();

    Session& session_;
    const StockBoxes empty_; ///< what boxes there are
    std::vector<QLineEdit*> txtDsp_, txtPrc_;
};

} // namespace pistaro

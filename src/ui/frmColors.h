// The colour dialog: six buttons, each in its colour, and a preview of what they look like together.
#pragma once

#include "commands/session.h"
#include "ui/colour_button.h"

#include <QDialog>

#include <array>

namespace pistaro {

/// Modal. Apply changes the project's colours and closes; Save writes the settings file and does neither.
class frmColors : public QDialog {
public:
    explicit frmColors(Session& session, QWidget* parent = nullptr);

private:
    QLayout* Slots();
    QLayout* Buttons();
    void Choose(ColourButton& button);
    ColourScheme Chosen() const;

    Session& session_;
    std::array<ColourButton*, std::size(ColourSlots)> buttons_{}; ///< in the order of ColourSlots
    QWidget* picExample_ = nullptr;
};

} // namespace pistaro

// The palette from which one colour is picked.
#pragma once

#include "model/colour_scheme.h"

#include <QButtonGroup>
#include <QDialog>

namespace pistaro {

/// Modal. A press of a palette button puts its colour into the one being edited; Cancel leaves that as it is.
class frmColorSelection : public QDialog {
public:
    explicit frmColorSelection(Colour& colourBeingEdited, QWidget* parent = nullptr);

private:
    void AddColour(int index, Colour colour);

    Colour& colourBeingEdited_;
    QButtonGroup* const keyField_;
};

} // namespace pistaro

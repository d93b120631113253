// Where a picture lies under the circuit, and how large it is: by two places in it whose distance one knows.
#pragma once

#include "commands/session.h"
#include "ui/marked_picture.h"

#include <QDialog>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

namespace pistaro {

/// Modal. The places that were marked the last time are marked again. OK lays the picture under the circuit, once its
/// size is known. Fault: the bytes are no picture.
class frmBackground : public QDialog {
public:
    frmBackground(Session& session, const ScaledBackground& proposed, QWidget* parent = nullptr);

private:
    QGroupBox* ScaleFrame();
    QGroupBox* PlaceFrame();
    QLayout* Buttons();
    /// Says what is to be done next in the picture, and what the marks are apart.
    void TellStep();
    /// Takes the scale from marks and distance, where there are both.
    void Measure();
    ScaledBackground Chosen() const;

    Session& session_;
    ScaledBackground background_;
    QSize pixels_; ///< of the picture
    MarkedPicture* picBackground_ = nullptr;
    QDoubleSpinBox *spnDistance_ = nullptr, *spnX_ = nullptr, *spnY_ = nullptr, *spnTurn_ = nullptr;
    QSpinBox* spnOpacity_ = nullptr;
    QLabel *lblStep_ = nullptr, *lblScale_ = nullptr;
    QPushButton* cmdOk_ = nullptr;
};

} // namespace pistaro

// The About box, which is also the window that the program opens with.
#pragma once

#include "catalogue/catalogue.h"

#include <QDialog>

#include <functional>

namespace pistaro {

class frmAbout : public QDialog {
public:
    /// The About box: stays, beside its owner, until cmdOK is pressed.
    frmAbout(const Catalogue& catalogue, QWidget* owner);

    /// The opening window, without a button: after 1500 milliseconds it calls `showMainWindow` and goes.
    frmAbout(const Catalogue& catalogue, const std::function<void()>& showMainWindow);

    /// The opening window waits for its timer, whatever key is pressed.
    void reject() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    frmAbout(const Catalogue& catalogue, QWidget* owner, bool aboutFromMenu);

    const Catalogue& catalogue_;
    const bool aboutFromMenu_;
};

} // namespace pistaro

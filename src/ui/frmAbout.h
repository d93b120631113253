// The About box, which is also the window that the program opens with.
#pragma once

#include <QDialog>

#include <functional>

namespace pistaro {

class frmAbout : public QDialog {
public:
    /// The About box: stays, beside its owner, until cmdOK is pressed.
    explicit frmAbout(QWidget* owner);

    /// The opening window, without a button: after 1500 milliseconds it calls `showMainWindow` and goes.
    explicit frmAbout(const std::function<void()>& showMainWindow);

    /// The opening window waits for its timer, whatever key is pressed.
    void reject() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    frmAbout(QWidget* owner, bool aboutFromMenu);

    const bool aboutFromMenu_;
};

} // namespace pistaro

// A drop-down list that follows the keys while it is open, and hinders no key that is meant for its dialog.
#pragma once

#include <QComboBox>

namespace pistaro {

/// What the arrow keys reach in the open list is chosen at once; Esc takes it back. Alt with a button's letter closes
/// the list and presses that button.
class ChoiceList : public QComboBox {
public:
    explicit ChoiceList(QWidget* parent = nullptr);

    void showPopup() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool PressButton(int key);

    int before_ = -1;     ///< what was chosen when the list opened
    bool byKeys_ = false; ///< the keys, not the mouse, lead through the open list
};

} // namespace pistaro

// A button that shows a colour as its back colour, and nothing else.
#pragma once

#include "model/colour_scheme.h"

#include <QAbstractButton>

namespace pistaro {

class ColourButton : public QAbstractButton {
public:
    explicit ColourButton(Colour colour, QWidget* parent = nullptr);

    Colour BackColour() const { return colour_; }
    void SetBackColour(Colour colour);

    QSize sizeHint() const override { return {56, 26}; }

protected:
    /// Enter presses it, as it presses push buttons.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Colour colour_ = 0; ///< as the settings hold it, which may say more than a colour on the screen
};

} // namespace pistaro

// The switch between Build and Insert: both modes stand at its sides, and its knob at the one in force.
#pragma once

#include <QPushButton>

namespace pistaro {

class ModeSwitch : public QPushButton {
public:
    void ShowMode(bool inserting);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintLabel(QPainter& painter, const QRect& place, Qt::Alignment side, const QString& label,
                    bool inForce) const;

    bool inserting_ = false;
};

} // namespace pistaro

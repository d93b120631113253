// The drawing area: the circuit drawn onto a picture that is kept, and clicks on it.
#pragma once

#include "render/placement.h"
#include "ui/workbench.h"

#include <QImage>
#include <QWidget>

namespace pistaro {

class CircuitView : public QWidget {
public:
    explicit CircuitView(Workbench& workbench);

    /// Redraws the circuit from the data and shows it.
    void Redraw();

    /// A picture behind the circuit, at its natural size from the top left; none when it is null.
    void SetBackground(const QImage& background);

    bool HasBackground() const { return !background_.isNull(); }

    const QImage& Picture() const { return picture_; }

    /// The drawing as it is shown, one pixel for each device-independent one.
    QImage PlainPicture();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QSize PictureSize() const;
    void DrawOn(QImage& picture);
    WorldPoint WorldAt(QPointF position) const;

    Workbench& workbench_;
    QImage picture_;
    QImage background_;
    int wheelTurn_ = 0; ///< what is left of a turn of the wheel, eighths of a degree
};

} // namespace pistaro

// A picture in which two places can be marked by clicks: for telling how far they are apart.
#pragma once

#include <QImage>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace pistaro {

/// The wheel zooms at the mouse; a drag moves the picture. A third click moves the mark that is nearer.
class MarkedPicture : public QWidget {
public:
    MarkedPicture(QImage picture, std::function<void()> marked);

    /// Between both marks, pixels of the picture; nothing before both are set.
    std::optional<double> Distance() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QPointF PlaceOf(QPointF pixel) const { return corner_ + pixel * scale_; }
    QPointF PixelAt(QPointF place) const { return (place - corner_) / scale_; }
    double FittingScale() const;
    void Mark(QPointF pixel);

    QImage picture_;
    std::function<void()> marked_;
    std::vector<QPointF> marks_; ///< pixels of the picture
    double scale_ = 1;           ///< pixels of the screen that one of the picture's takes
    QPointF corner_;             ///< where the picture's corner lies
    QPointF pressed_, moved_;    ///< where the button went down, and where the mouse was last
    bool drags_ = false;
};

} // namespace pistaro

// A picture in which two places can be marked by clicks: for telling how far they are apart.
#pragma once

#include <QImage>
#include <QTransform>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace pistaro {

/// The wheel zooms at the mouse; a drag moves the picture, or the mark that it begins on. A third click moves the mark
/// that is nearer.
class MarkedPicture : public QWidget {
public:
    MarkedPicture(QImage picture, std::function<void()> marked);

    /// Places of the picture, its pixels: none, one or two.
    const std::vector<QPointF>& Marks() const { return marks_; }
    void SetMarks(std::vector<QPointF> marks);

    /// Between both marks, pixels of the picture; nothing before both are set.
    std::optional<double> Distance() const;

    /// Words beside the line between the marks.
    void SetWords(const QString& words);
    /// How much of the picture shows, 1 for all.
    void SetOpacity(double opacity);
    /// Shows all of the picture, turned clockwise by so many radians.
    void SetTurn(double turn);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// From the picture's pixels to places of the screen.
    QTransform OnScreen() const;
    QPointF PlaceOf(QPointF pixel) const { return OnScreen().map(pixel); }
    QPointF PixelAt(QPointF place) const { return OnScreen().inverted().map(place); }
    /// What a picture of 1 pixel of the screen a pixel takes when it is turned.
    QRectF Turned() const;
    double FittingScale() const;
    void Fit();
    /// The mark that lies under a place of the screen.
    std::optional<std::size_t> MarkAt(QPointF place) const;
    void Mark(QPointF pixel);
    void Move(std::size_t mark, QPointF pixel);
    void PaintLine(QPainter& painter) const;

    QImage picture_;
    std::function<void()> marked_;
    std::vector<QPointF> marks_; ///< pixels of the picture
    QString words_;
    double opacity_ = 1;
    double turn_ = 0;                 ///< clockwise
    double scale_ = 1;                ///< pixels of the screen that one of the picture's takes
    QPointF corner_;                  ///< where the picture's corner lies
    QPointF pressed_, moved_;         ///< where the button went down, and where the mouse was last
    std::optional<std::size_t> held_; ///< the mark that a drag moves
    bool drags_ = false;
};

} // namespace pistaro

#include "imaging/picture_grid.h"

#include "imaging/stamp.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace pistaro {

namespace {

/// What a painter draws with another one's pen on a transparent picture of so many pixels.
template <typename Draw>
QImage DrawnApart(const QPainter& like, QSize size, const QTransform& toPixels, Draw draw) {
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHints(like.renderHints());
    painter.setTransform(toPixels);
    painter.setPen(like.pen());
    draw(painter);
    return picture;
}

/// The pixel in which an eighth lies, and which of that pixel's it is.
int PixelOf(int eighth) { return eighth >> 3; }
int PartOf(int eighth) { return eighth & (Eighths - 1); }

/// How far from its centre a circle in a pen of that width reaches.
double ReachOf(double radius, double pen) { return radius < SmallestRing ? pen / 2 : radius + pen / 2; }

/// A circle is drawn once for each part of a pixel across and down on which one may lie, a row of them once for each
/// down.
class CircleRows {
public:
    CircleRows(const QPainter& painter, double radius, const std::vector<int>& columns)
        : scale_(painter.deviceTransform().m11()),
          middle_(static_cast<int>(std::ceil(ReachOf(radius, painter.pen().widthF()) * scale_))), columns_(columns),
          circles_(DrawnApart(painter, QSize(Size(), Size()) * Eighths, QTransform::fromScale(scale_, scale_),
                              [&](QPainter& apart) { DrawAll(apart, radius); })) {}

    void PressOn(QImage& picture, int row) {
        std::optional<Band>& band = bands_[static_cast<std::size_t>(PartOf(row))];
        if (!band) band.emplace(RowOf(picture.width(), PartOf(row)));
        band->PressOn(picture, PixelOf(row) - middle_);
    }

private:
    int Size() const { return 2 * middle_ + 1; } ///< of a circle's place in the picture of all, pixels

    void DrawAll(QPainter& painter, double radius) const {
        const auto centre = [&](int part) { return (part * Size() + middle_ + part / double{Eighths}) / scale_; };
        for (int down = 0; down < Eighths; ++down) {
            for (int across = 0; across < Eighths; ++across)
                PaintCircle(painter, {centre(across), centre(down)}, radius);
        }
    }

    QImage RowOf(int width, int down) const {
        std::vector<Stamp> circles;
        circles.reserve(Eighths);
        for (int across = 0; across < Eighths; ++across)
            circles.emplace_back(circles_.copy(across * Size(), down * Size(), Size(), Size()));
        QImage row(width, Size(), QImage::Format_ARGB32_Premultiplied);
        row.fill(Qt::transparent);
        for (const int column : columns_)
            circles[static_cast<std::size_t>(PartOf(column))].PressOn(row, PixelOf(column) - middle_, 0);
        return row;
    }

    double scale_;
    int middle_; ///< of a circle's place
    const std::vector<int>& columns_;
    QImage circles_; ///< all that may be needed, part by part
    std::array<std::optional<Band>, Eighths> bands_;
};

} // namespace

QImage* OpenPicture(const QPainter& painter) {
    auto* const picture = dynamic_cast<QImage*>(painter.device());
    const QTransform& toPixels = painter.deviceTransform();
    const bool isOpen = picture != nullptr && picture->format() == QImage::Format_RGB32 && picture->isDetached() &&
                        !painter.hasClipping() && toPixels.type() <= QTransform::TxScale &&
                        toPixels.m11() == toPixels.m22();
    return isOpen ? picture : nullptr;
}

bool DrawCrossingLines(QImage& picture, const QPainter& painter, const QList<QLineF>& down,
                       const QList<QLineF>& across) {
    const QTransform& toPixels = painter.deviceTransform();
    const auto crossDown = [&](const QLineF& line) {
        return toPixels.map(line.p1()).y() <= 0 && toPixels.map(line.p2()).y() >= picture.height();
    };
    const auto crossAcross = [&](const QLineF& line) {
        return toPixels.map(line.p1()).x() <= 0 && toPixels.map(line.p2()).x() >= picture.width();
    };
    const bool cross = std::ranges::all_of(down, crossDown) && std::ranges::all_of(across, crossAcross);
    if (!cross) return false;
    const auto drawn = [&](QSize size, const QList<QLineF>& lines) {
        return DrawnApart(painter, size, toPixels, [&](QPainter& apart) { apart.drawLines(lines); });
    };
    Band row(drawn({picture.width(), 1}, down)); // all rows look alike
    for (int y = 0; y < picture.height(); ++y)
        row.PressOn(picture, y);
    Stamp(drawn({1, picture.height()}, across)).PressAcross(picture); // and all columns
    return true;
}

void DrawCircles(QImage& picture, const QPainter& painter, double radius, const std::vector<int>& columns,
                 const std::vector<int>& rows) {
    CircleRows circles(painter, radius, columns);
    for (const int row : rows)
        circles.PressOn(picture, row);
}

void PaintCircle(QPainter& painter, QPointF centre, double radius) {
    if (radius < SmallestRing) {
        painter.drawPoint(centre);
    } else {
        painter.drawEllipse(centre, radius, radius);
    }
}

} // namespace pistaro

// Pieces painted on demand.
#include "ui/piece_icon.h"

#include "catalogue/catalogue.h"
#include "catalogue/track_geometry.h"
#include "imaging/painter_surface.h"
#include "render/redraw.h"

#include <QApplication>
#include <QIconEngine>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

/// The box around a piece that is laid at the origin, cm.
struct Extent {
    double Left = 1e9, Right = -1e9, Bottom = 1e9, Top = -1e9;

    void Include(double x, double y) {
        Left = std::min(Left, x);
        Right = std::max(Right, x);
        Bottom = std::min(Bottom, y);
        Top = std::max(Top, y);
    }
    double Side() const { return std::max(Right - Left, Top - Bottom); }
};

void IncludeArc(Extent& extent, const ArcStroke& arc) {
    constexpr int steps = 16;
    const double span = arc.End >= arc.Start ? double{arc.End} - arc.Start : arc.End - arc.Start + 2 * PiValue;
    for (int step = 0; step <= steps; ++step) {
        const double angle = arc.Start + span * step / steps;
        extent.Include(arc.Centre.X + arc.Radius * std::cos(angle), arc.Centre.Y + arc.Radius * std::sin(angle));
    }
}

Extent ExtentOf(const PiecePlacement& placement) {
    Extent extent;
    for (const WorldPoint corner : placement.Corners)
        extent.Include(corner.X, corner.Y);
    for (const Stroke& stroke : placement.Drawing) {
        if (const auto* const arc = std::get_if<ArcStroke>(&stroke.Shape)) IncludeArc(extent, *arc);
    }
    return extent;
}

double LargestSide() {
    static const double largest = [] {
        const Catalogue catalogue = InitCatalogue();
        double side = 0;
        for (std::size_t row = 0; row < CatalogueShapeCount; ++row) {
            side = std::max(side, ExtentOf(*PlacePiece(catalogue[row].Code, {}, "")).Side());
        }
        return side;
    }();
    return largest;
}

Colour FromQColor(const QColor& colour) { return Rgb(colour.red(), colour.green(), colour.blue()); }

class PieceIconEngine : public QIconEngine {
public:
    explicit PieceIconEngine(std::string code) : code_(std::move(code)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const PiecePlacement placement = *PlacePiece(code_, {}, "");
        const Extent extent = ExtentOf(placement);
        const double scale = static_cast<double>(std::min(rect.width(), rect.height())) / PieceIconSide;
        const double half = LargestSide() / 2 * PieceIconSide / (PieceIconSide - 2); // a pixel to spare on each side
        const double x = (extent.Left + extent.Right) / 2;
        const double y = (extent.Bottom + extent.Top) / 2;
        const QPalette palette = QApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->translate(rect.topLeft());
        painter->scale(scale, scale);
        PainterSurface surface(*painter, PieceIconSide);
        surface.SetScale({static_cast<float>(x - half), static_cast<float>(y + half), static_cast<float>(x + half),
                          static_cast<float>(y - half)});
        DrawPiece(placement, FromQColor(palette.color(group, QPalette::ButtonText)),
                  FromQColor(palette.color(group, QPalette::Mid)), surface);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new PieceIconEngine(*this); }

private:
    std::string code_;
};

} // namespace

QIcon PieceIcon(const std::string& code) { return QIcon(new PieceIconEngine(code)); }

} // namespace pistaro

// Pieces painted on demand.
#include "ui/piece_icon.h"

#include "catalogue/catalogue.h"
#include "imaging/painter_surface.h"
#include "render/piece_extent.h"
#include "render/redraw.h"

#include <QApplication>
#include <QIconEngine>
#include <QPalette>

#include <algorithm>

namespace pistaro {

namespace {

double SideOf(const PieceExtent& extent) {
    return std::max(double{extent.Right} - extent.Left, double{extent.Top} - extent.Bottom);
}

double LargestSide() {
    static const double largest = [] {
        const Catalogue catalogue = InitCatalogue();
        double side = 0;
        for (std::size_t row = 0; row < CatalogueShapeCount; ++row) {
            side = std::max(side, SideOf(ExtentOf(*PlacePiece(catalogue[row].Code, {}, ""))));
        }
        return side;
    }();
    return largest;
}

class PieceIconEngine : public QIconEngine {
public:
    explicit PieceIconEngine(std::string code) : code_(std::move(code)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const PiecePlacement placement = *PlacePiece(code_, {}, "");
        const WorldPoint middle = ExtentOf(placement).Middle();
        const double scale = static_cast<double>(std::min(rect.width(), rect.height())) / PieceIconSide;
        const double half = LargestSide() / 2 * PieceIconSide / (PieceIconSide - 2); // a pixel to spare on each side
        const QPalette palette = QApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->translate(rect.topLeft());
        painter->scale(scale, scale);
        PainterSurface surface(*painter, PieceIconSide);
        surface.SetScale({static_cast<float>(middle.X - half), static_cast<float>(middle.Y + half),
                          static_cast<float>(middle.X + half), static_cast<float>(middle.Y - half)});
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

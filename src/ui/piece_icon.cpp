#include "ui/piece_icon.h"

#include "imaging/painter_surface.h"
#include "layout/piece_extent.h"
#include "render/redraw.h"
#include "ui/painted_icon.h"

#include <QApplication>

#include <algorithm>

namespace pistaro {

namespace {

double SideOf(const PieceExtent& extent) {
    return std::max(double{extent.Right} - extent.Left, double{extent.Top} - extent.Bottom);
}

PieceExtent ExtentOf(const PieceKind& kind) { return ExtentOf(PlacePiece(kind, {}, {})); }

double LargestSide(const Catalogue& catalogue) {
    double side = 0;
    for (const CatalogueEntry& piece : catalogue) {
        if (piece.IsBasic()) side = std::max(side, SideOf(ExtentOf(piece.Kind)));
    }
    return side;
}

class PieceIconEngine : public PaintedIcon<PieceIconEngine> {
public:
    PieceIconEngine(const PieceKind& kind, double largestSide) : kind_(kind), largestSide_(largestSide) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const PiecePlacement placement = PlacePiece(kind_, {}, {});
        const WorldPoint middle = ExtentOf(placement).Middle();
        const double scale = static_cast<double>(std::min(rect.width(), rect.height())) / PieceIconSide;
        const double half = largestSide_ / 2 * PieceIconSide / (PieceIconSide - 2); // a pixel to spare on each side
        const QPalette palette = QApplication::palette();
        const QPalette::ColorGroup group = GroupOf(mode);
        painter->save();
        painter->translate(rect.topLeft());
        painter->scale(scale, scale);
        PainterSurface surface(*painter, TargetSize::Square(PieceIconSide));
        surface.SetScale({static_cast<float>(middle.X - half), static_cast<float>(middle.Y + half),
                          static_cast<float>(middle.X + half), static_cast<float>(middle.Y - half)});
        const bool isChosen = mode == QIcon::Selected; // on the ground of what is chosen in a list
        DrawPiece(placement,
                  FromQColor(palette.color(group, isChosen ? QPalette::HighlightedText : QPalette::ButtonText)),
                  FromQColor(palette.color(group, isChosen ? QPalette::HighlightedText : QPalette::Mid)), surface);
        painter->restore();
    }

private:
    PieceKind kind_;
    double largestSide_; ///< of a basic piece, cm
};

} // namespace

QIcon PieceIcon(const CatalogueEntry& piece, const Catalogue& catalogue) {
    return QIcon(new PieceIconEngine(piece.Kind, LargestSide(catalogue)));
}

} // namespace pistaro

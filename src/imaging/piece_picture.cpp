#include "imaging/piece_picture.h"

#include "imaging/image_file.h"
#include "imaging/painter_surface.h"
#include "layout/piece_extent.h"
#include "platform/fault.h"
#include "render/redraw.h"

namespace pistaro {

namespace {

// A view 250 cm wide has 3 pixels a cm, so that the longest piece, of 40 cm, is 120 pixels high, and the widest, the
// lap counter of 27.9 cm, 84 wide.
constexpr int DrawingPixels = 750;
constexpr int PictureWidth = 96;
constexpr int PictureHeight = 160;
constexpr int CaptionHeight = 18;

PiecePlacement CentredPiece(const PieceKind& kind, const ViewSettings& view) {
    const WorldPoint middle = ExtentOf(PlacePiece(kind, {}, {})).Middle();
    return PlacePiece(kind, BuildCursor{view.MidX - middle.X, view.MidY - middle.Y, 0}, {});
}

} // namespace

std::string PiecePicture(const Catalogue& catalogue, std::string_view code, const ViewSettings& view,
                         const ColourScheme& colours, PictureFormat format) {
    const CatalogueEntry* const piece = catalogue.Find(code);
    if (piece == nullptr) throw InvalidProcedureCall("there is no piece " + std::string(code));
    QImage image(PictureWidth, PictureHeight, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        painter.translate((PictureWidth - DrawingPixels) / 2.0, (PictureHeight - DrawingPixels) / 2.0);
        PainterSurface surface(painter, TargetSize::Square(DrawingPixels));
        surface.Clear(colours.Background);
        surface.SetScale(ShownRectangle(view));
        DrawPiece(CentredPiece(piece->Kind, view), colours.Owned, colours.Rail, surface);
        painter.resetTransform();
        surface.SetFontSize(NormalFont);
        painter.setPen(ToQColor(TextColourOn(colours.Background)));
        painter.drawText(QRect(0, PictureHeight - CaptionHeight, PictureWidth, CaptionHeight), Qt::AlignCenter,
                         QString::fromUtf8(code.data(), static_cast<qsizetype>(code.size())));
    }
    return EncodeImage(image, format);
}

} // namespace pistaro

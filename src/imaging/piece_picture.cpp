// A piece in the middle of the view, cut out of the drawing.
#include "imaging/piece_picture.h"

#include "imaging/image_file.h"
#include "imaging/painter_surface.h"
#include "platform/fault.h"
#include "render/piece_extent.h"
#include "render/redraw.h"

namespace pistaro {

namespace {

// A view 250 cm wide has 3 pixels a cm, so that the longest piece, of 40 cm, is 120 pixels high, and the widest, the
// lap counter of 27.9 cm, 84 wide.
constexpr int DrawingPixels = 750;
constexpr int PictureWidth = 96;
constexpr int PictureHeight = 160;
constexpr int CaptionHeight = 18;

PiecePlacement CentredPiece(std::string_view code, const ViewSettings& view) {
    const PieceKind* const kind = FindPieceKind(code);
    if (kind == nullptr) throw InvalidProcedureCall("there is no piece " + std::string(code));
    const WorldPoint middle = ExtentOf(PlacePiece(*kind, {}, {})).Middle();
    return PlacePiece(*kind, {view.MidX - middle.X, view.MidY - middle.Y, 0}, {});
}

} // namespace

std::string PiecePicture(const Project& project, std::string_view code, const std::string& format) {
    QImage image(PictureWidth, PictureHeight, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        painter.translate((PictureWidth - DrawingPixels) / 2.0, (PictureHeight - DrawingPixels) / 2.0);
        PainterSurface surface(painter, DrawingPixels);
        surface.Clear(project.Colours.Background);
        surface.SetScale(ShownRectangle(project.View));
        DrawPiece(CentredPiece(code, project.View), project.Colours.Owned, project.Colours.Rail, surface);
        painter.resetTransform();
        surface.SetFontSize(NormalFont);
        painter.setPen(ToQColor(project.Colours.Background).lightnessF() < 0.5 ? Qt::white : Qt::black);
        painter.drawText(QRect(0, PictureHeight - CaptionHeight, PictureWidth, CaptionHeight), Qt::AlignCenter,
                         QString::fromUtf8(code.data(), static_cast<qsizetype>(code.size())));
    }
    return EncodeImage(image, format);
}

} // namespace pistaro

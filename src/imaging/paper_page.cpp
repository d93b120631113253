#include "imaging/paper_page.h"

#include "render/redraw.h"

#include <QTextOption>

namespace pistaro {

namespace {

constexpr PenWidth MarkPen{0.1, PenWidth::Unit::Millimetres};

/// A surface whose scale is given, rather than how much it shows.
class ScaledSurface : public PainterSurface {
public:
    ScaledSurface(QPainter& painter, const ViewRectangle& world, double dotsPerCm, double dotsPerInch)
        : PainterSurface(painter, {(double{world.ViewRight} - world.ViewLeft) * dotsPerCm,
                                   (double{world.ViewTop} - world.ViewBottom) * dotsPerCm, dotsPerInch}) {
        SetScale(world);
    }
};

} // namespace

void PaperPage::InArea(const Box& area, const Box& part, const Box& world, double scale,
                       const std::function<void(PainterSurface&)>& draw) {
    Box whole = world;
    whole.Include(part);
    const ViewRectangle shown = whole.Shown();
    painter_.save();
    painter_.setClipRect(Place(area));
    painter_.translate(Place(area.Left + (double{shown.ViewLeft} - part.Left) / scale,
                             area.Top + (double{shown.ViewTop} - part.Top) / scale));
    ScaledSurface surface(painter_, shown, dotsPerCm_ / scale, dotsPerInch_);
    constexpr double millimetresPerInch = 25.4;
    const bool seen = DrawingPen.Value * dotsPerInch_ / millimetresPerInch >= 1; // else of a dot, as in a small preview
    surface.SetPen(seen ? DrawingPen : PenWidth{1, PenWidth::Unit::Pixels});
    surface.SetFontSize(NormalFont);
    draw(surface);
    painter_.restore();
}

void PaperPage::OnPaper(const Box& area, const std::function<void(Surface&)>& draw) {
    painter_.save();
    const ViewRectangle shown = area.Shown();
    painter_.translate(Place(double{shown.ViewLeft}, double{shown.ViewTop}));
    ScaledSurface surface(painter_, shown, dotsPerCm_, dotsPerInch_);
    surface.SetPen(MarkPen);
    draw(surface);
    painter_.restore();
}

void PaperPage::ChooseFont(const Box& area, double points, QFont::Weight weight) {
    ScaledSurface(painter_, area.Shown(), dotsPerCm_, dotsPerInch_).SetFontSize(points);
    QFont font = painter_.font();
    font.setWeight(weight);
    painter_.setFont(font);
    painter_.setPen(Qt::black);
}

double PaperPage::Words(const Box& area, const std::string& text, Qt::Alignment alignment, double points,
                        QFont::Weight weight, Colour ink) {
    ChooseFont(area, points, weight);
    painter_.setPen(ToQColor(ink));
    QRectF written;
    painter_.drawText(Place(area), static_cast<int>(alignment | Qt::AlignTop), QString::fromStdString(text), &written);
    return written.width() / dotsPerCm_;
}

void PaperPage::UprightWords(const Box& area, const std::string& text, double points, Colour ink) {
    ChooseFont(area, points, QFont::Normal);
    const QRectF place = Place(area);
    painter_.save();
    painter_.translate(place.bottomLeft());
    painter_.rotate(-90);
    painter_.setPen(ToQColor(ink));
    painter_.drawText(QRectF(0, 0, place.height(), place.width()), Qt::AlignCenter, QString::fromStdString(text));
    painter_.restore();
}

double PaperPage::Paragraph(const Box& area, const std::string& text, double points) {
    ChooseFont(area, points, QFont::Normal);
    QTextOption wrapped;
    wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    const QString words = QString::fromStdString(text);
    painter_.drawText(Place(area), words, wrapped);
    return painter_.boundingRect(Place(area), words, wrapped).height() / dotsPerCm_;
}

void DrawLine(Surface& surface, double fromX, double fromY, double toX, double toY, Colour colour) {
    surface.Draw(LineSegment{{static_cast<float>(fromX), static_cast<float>(fromY)},
                             {static_cast<float>(toX), static_cast<float>(toY)}},
                 colour);
}

void DrawFrame(Surface& surface, const Box& box, Colour colour) {
    const ViewRectangle edge = box.Shown();
    const WorldPoint corners[] = {{edge.ViewLeft, edge.ViewTop},
                                  {edge.ViewRight, edge.ViewTop},
                                  {edge.ViewRight, edge.ViewBottom},
                                  {edge.ViewLeft, edge.ViewBottom}};
    for (std::size_t i = 0; i < 4; ++i)
        surface.Draw(LineSegment{corners[i], corners[(i + 1) % 4]}, colour);
}

} // namespace pistaro

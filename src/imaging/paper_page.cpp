#include "imaging/paper_page.h"

#include "render/redraw.h"

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

void PaperPage::Words(const Box& area, const std::string& text, Qt::Alignment alignment, double points,
                      QFont::Weight weight) {
    ScaledSurface(painter_, area.Shown(), dotsPerCm_, dotsPerInch_).SetFontSize(points);
    QFont font = painter_.font();
    font.setWeight(weight);
    painter_.setFont(font);
    painter_.setPen(Qt::black);
    painter_.drawText(Place(area), static_cast<int>(alignment | Qt::AlignTop), QString::fromStdString(text));
}

void DrawLine(Surface& surface, double fromX, double fromY, double toX, double toY) {
    surface.Draw(LineSegment{{static_cast<float>(fromX), static_cast<float>(fromY)},
                             {static_cast<float>(toX), static_cast<float>(toY)}},
                 Rgb(0, 0, 0));
}

} // namespace pistaro

// World coordinates to pixels, and strokes to painter calls.
#include "imaging/painter_surface.h"

#include "imaging/picture_grid.h"

#include <QFontMetricsF>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace pistaro {

namespace {

constexpr double PointsPerInch = 72;
constexpr double MillimetresPerInch = 25.4;
constexpr double ScreenDotsPerInch = 96;
constexpr double Margin = 4; ///< pixels that a stroke of one pixel may reach beyond its geometry

/// An arc as curves of an eighth of a circle at most, which stay within a 200,000th of the radius. The painter's own
/// arcs stray far enough to part the pieces of a large curve.
QPainterPath ArcPath(QPointF centre, double radius, double start, double span) {
    const int parts = std::max(1, static_cast<int>(std::ceil(span / (std::numbers::pi / 4) - 1e-3)));
    const double step = span / parts;
    const double handle = radius * 4 / 3 * std::tan(step / 4);
    const auto outwards = [](double angle) { return QPointF(std::cos(angle), -std::sin(angle)); };
    const auto onwards = [](double angle) { return QPointF(-std::sin(angle), -std::cos(angle)); };
    QPainterPath path(centre + radius * outwards(start));
    for (int part = 0; part < parts; ++part) {
        const double from = start + part * step;
        const double to = from + step;
        path.cubicTo(centre + radius * outwards(from) + handle * onwards(from),
                     centre + radius * outwards(to) - handle * onwards(to), centre + radius * outwards(to));
    }
    return path;
}

/// The part of a line inside a rectangle with a margin around it, after Liang and Barsky: far coordinates of a strange
/// file must not reach the rasteriser.
std::optional<QLineF> Clipped(QPointF from, QPointF to, const QRectF& part, double margin) {
    const double dx = to.x() - from.x();
    const double dy = to.y() - from.y();
    double enter = 0;
    double leave = 1;
    const auto clip = [&](double towards, double distance) {
        if (towards == 0) return distance >= 0;
        const double at = distance / towards;
        // `at` comes first, so that where it is not a number nothing is visible.
        if (towards < 0) {
            enter = std::max(at, enter);
        } else {
            leave = std::min(at, leave);
        }
        return enter <= leave;
    };
    const bool visible = clip(-dx, from.x() - part.left() + margin) && clip(dx, part.right() + margin - from.x()) &&
                         clip(-dy, from.y() - part.top() + margin) && clip(dy, part.bottom() + margin - from.y());
    if (!visible) return std::nullopt;
    return QLineF(from.x() + enter * dx, from.y() + enter * dy, from.x() + leave * dx, from.y() + leave * dy);
}

} // namespace

QColor ToQColor(Colour colour) { return {Red(colour), Green(colour), Blue(colour)}; }

Colour FromQColor(const QColor& colour) { return Rgb(colour.red(), colour.green(), colour.blue()); }

PainterSurface::PainterSurface(QPainter& painter, const TargetSize& target, const QImage& backdrop)
    : painter_(painter), target_(target), part_(0, 0, target.Width, target.Height), backdrop_(backdrop) {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setRenderHint(QPainter::TextAntialiasing);
    painter_.setBrush(Qt::NoBrush);
}

void PainterSurface::Clear(Colour background) {
    painter_.fillRect(part_, ToQColor(background));
    if (backdrop_.isNull()) return;
    const double dotsPerPixel = target_.DotsPerInch / ScreenDotsPerInch;
    painter_.drawImage(QRectF(QPointF(0, 0), QSizeF(backdrop_.size()) * dotsPerPixel), backdrop_);
}

void PainterSurface::SetScale(const ViewRectangle& world) {
    world_ = world;
    dotsPerCm_ = target_.Width / (double{world.ViewRight} - world.ViewLeft);
}

double PainterSurface::PixelsPerCm() const { return dotsPerCm_ * ScreenDotsPerInch / target_.DotsPerInch; }

void PainterSurface::SetPen(PenWidth width) {
    const bool pixels = width.In == PenWidth::Unit::Pixels;
    lineWidth_ = pixels ? width.Value : width.Value * target_.DotsPerInch / MillimetresPerInch;
}

void PainterSurface::Draw(const LineSegment& line, Colour colour) {
    const auto visible = VisiblePart(line);
    if (!visible) return;
    UsePen(colour);
    painter_.drawLine(*visible);
}

void PainterSurface::Draw(const ArcSegment& arc, Colour colour) {
    const QPointF centre = Mapped(arc.Centre);
    const double radius = arc.Radius * dotsPerCm_;
    if (!IsVisible(centre, radius)) return;
    UsePen(colour);
    painter_.drawPath(ArcPath(centre, radius, arc.Start, SpanOf(arc)));
}

void PainterSurface::Draw(const Ellipse& ellipse, Colour colour) {
    const QPointF centre = Mapped(ellipse.Centre);
    const double radius = ellipse.Radius * dotsPerCm_;
    if (!IsVisible(centre, radius)) return;
    if (ellipse.Aspect == 1) {
        UseCirclePen(colour, radius);
        return PaintCircle(painter_, centre, radius);
    }
    UsePen(colour);
    painter_.drawEllipse(centre, radius, radius * ellipse.Aspect);
}

void PainterSurface::DrawGridLines(const GridLines& columns, const GridLines& rows, Colour colour) {
    QList<QLineF> down;
    for (int i = 0; i < columns.Count(); ++i) {
        if (const auto line = VisiblePart({{columns.At(i), rows.End()}, {columns.At(i), rows.Begin()}}))
            down.push_back(*line);
    }
    QList<QLineF> across;
    for (int i = 0; i < rows.Count(); ++i) {
        if (const auto line = VisiblePart({{columns.Begin(), rows.At(i)}, {columns.End(), rows.At(i)}}))
            across.push_back(*line);
    }
    UsePen(colour);
    QImage* const picture = OpenPicture(painter_);
    if (picture == nullptr || !DrawCrossingLines(*picture, painter_, down, across))
        Surface::DrawGridLines(columns, rows, colour);
}

// On eighths of a pixel many circles look alike.
void PainterSurface::DrawGridDots(const GridLines& columns, const GridLines& rows, double radius, Colour colour) {
    if (!roundsDots_ || dynamic_cast<QImage*>(painter_.device()) == nullptr)
        return Surface::DrawGridDots(columns, rows, radius, colour);
    const double dots = radius * dotsPerCm_;
    const QTransform& toPixels = painter_.deviceTransform();
    // What is no larger than a pixel is painted as one: that on which it lies.
    const double rounding = 2 * dots * toPixels.m11() <= 1 ? 0 : 0.5;
    const auto eighth = [&](double pixels) { return static_cast<int>(std::floor(pixels * Eighths + rounding)); };
    const QPointF middle = part_.center();
    std::vector<int> across;
    for (int i = 0; i < columns.Count(); ++i) {
        const QPointF place(Mapped({columns.At(i), 0}).x(), middle.y());
        if (IsVisible(place, dots)) across.push_back(eighth(toPixels.map(place).x()));
    }
    std::vector<int> down;
    for (int j = 0; j < rows.Count(); ++j) {
        const QPointF place(middle.x(), Mapped({0, rows.At(j)}).y());
        if (IsVisible(place, dots)) down.push_back(eighth(toPixels.map(place).y()));
    }
    UseCirclePen(colour, dots);
    if (QImage* const picture = OpenPicture(painter_)) return DrawCircles(*picture, painter_, dots, across, down);
    const QTransform toDots = toPixels.inverted();
    for (const int x : across) {
        for (const int y : down)
            PaintCircle(painter_, toDots.map(QPointF(x, y) / Eighths), dots);
    }
}

void PainterSurface::Fill(const std::vector<WorldPoint>& polygon, Colour colour) {
    QPolygonF places;
    for (const WorldPoint point : polygon)
        places << Mapped(point);
    const QRectF around = places.boundingRect();
    if (!IsVisible(around.center(), std::hypot(around.width(), around.height()) / 2)) return;
    ForgetPen();
    painter_.setPen(QPen(ToQColor(colour), 1)); // closes the seam to what lies beside it
    painter_.setBrush(ToQColor(colour));
    painter_.drawPolygon(places);
    painter_.setBrush(Qt::NoBrush);
}

void PainterSurface::DrawPoint(WorldPoint point, Colour colour) {
    textPosition_ = Mapped(point);
    if (!IsVisible(textPosition_, 1)) return;
    UsePen(colour);
    painter_.drawPoint(textPosition_);
}

void PainterSurface::DrawText(const std::string& text, Colour colour) {
    constexpr double widestText = 1000; // pixels
    if (!IsVisible(textPosition_, widestText)) return;
    UsePen(colour);
    const double ascent = painter_.fontMetrics().ascent();
    painter_.drawText(textPosition_ + QPointF(0, ascent), QString::fromStdString(text));
}

void PainterSurface::SetFontSize(double points) {
    QFont font = painter_.font();
    const auto pixels = static_cast<int>(std::lround(points * target_.DotsPerInch / PointsPerInch));
    font.setPixelSize(std::max(1, pixels)); // of none the font would keep the size it had
    painter_.setFont(font);
}

QPointF PainterSurface::Mapped(WorldPoint point) const {
    return {(double{point.X} - world_.ViewLeft) * dotsPerCm_, (double{world_.ViewTop} - point.Y) * dotsPerCm_};
}

QLineF PainterSurface::Aligned(const QLineF& line) const {
    constexpr double straight = 0.01; // pixels that a level line may rise
    const bool upright = std::fabs(line.dx()) < straight;
    if (!upright && std::fabs(line.dy()) >= straight) return line;
    const QTransform& toPixels = painter_.deviceTransform();
    if (toPixels.type() > QTransform::TxScale) return line;
    const bool odd = std::lround(lineWidth_ * toPixels.m11()) % 2 != 0;
    const auto shift = [&](double at, double scale, double offset) {
        const double pixel = at * scale + offset;
        return ((odd ? std::floor(pixel) + 0.5 : std::round(pixel)) - pixel) / scale;
    };
    return upright ? line.translated(shift(line.x1(), toPixels.m11(), toPixels.dx()), 0)
                   : line.translated(0, shift(line.y1(), toPixels.m22(), toPixels.dy()));
}

double PainterSurface::Reach() const { return Margin + std::max(0.0, lineWidth_ - 1); }

bool PainterSurface::IsVisible(QPointF centre, double radius) const {
    const double reach = std::fabs(radius) + Reach();
    // Written so that a scale of an empty view, which makes everything not a number, shows nothing.
    return centre.x() + reach >= part_.left() && centre.x() - reach <= part_.right() &&
           centre.y() + reach >= part_.top() && centre.y() - reach <= part_.bottom();
}

std::optional<QLineF> PainterSurface::VisiblePart(const LineSegment& line) const {
    const auto visible = Clipped(Mapped(line.From), Mapped(line.To), part_, Reach());
    return visible && aligns_ ? Aligned(*visible) : visible;
}

void PainterSurface::UseCirclePen(Colour colour, double radius) {
    if (radius < SmallestRing) {
        UsePen(colour, 2 * radius, 2 * radius == 1 ? Qt::SquareCap : Qt::RoundCap); // of one pixel: all of it
    } else {
        UsePen(colour);
    }
}

void PainterSurface::UsePen(Colour colour, double width, Qt::PenCapStyle cap) {
    if (colour == penColour_ && width == penWidth_ && cap == penCap_ && dashed_ == penDashed_) return;
    painter_.setPen(QPen(ToQColor(colour), width, dashed_ ? Qt::DashLine : Qt::SolidLine, cap));
    penDashed_ = dashed_;
    penColour_ = colour;
    penWidth_ = width;
    penCap_ = cap;
}

} // namespace pistaro

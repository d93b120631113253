// A full redraw against the bare painter calls for the same lines, arcs, ellipses and texts at the same coordinates.
#include "bare_calls.h"
#include "full_circuit.h"
#include "imaging/painter_surface.h"
#include "render/redraw.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <cmath>
#include <numbers>
#include <variant>
#include <vector>

namespace pistaro {
namespace {

constexpr int Side = 700;

struct BareLine {
    QLineF Line;
};
struct BareArc {
    QRectF Square;
    int Start, Span; ///< sixteenths of a degree
};
struct BareEllipse {
    QPointF Centre;
    double RadiusX, RadiusY;
};
struct BarePoint {
    QPointF Point;
};
struct BareText {
    QPointF Baseline;
    QString Text;
};
struct BareCall {
    std::variant<BareLine, BareArc, BareEllipse, BarePoint, BareText> Shape;
    QPen Pen;
    bool ChangesPen;
};

/// Writes down what a plain program would call, in pixels.
class BareRecorder : public Surface {
public:
    QColor Background;
    QFont Font;
    std::vector<BareCall> Calls;

    void Clear(Colour background) override { Background = ToQColor(background); }
    void SetScale(const ViewRectangle& world) override { world_ = world; }
    double PixelsPerCm() const override { return Scale(); }
    void SetPen(PenWidth) override {}
    void SetFontSize(double points) override { Font.setPixelSize(static_cast<int>(std::lround(points * 96 / 72))); }

    void Draw(const LineSegment& line, Colour colour) override {
        Add(BareLine{QLineF(Mapped(line.From), Mapped(line.To))}, colour);
    }
    void Draw(const ArcSegment& arc, Colour colour) override {
        double span = double{arc.End} - arc.Start;
        if (span < 0) span += 2 * std::numbers::pi;
        const auto sixteenths = [](double angle) {
            return static_cast<int>(std::lround(angle * 2880 / std::numbers::pi));
        };
        Add(BareArc{SquareAround(Mapped(arc.Centre), arc.Radius * Scale()), sixteenths(arc.Start), sixteenths(span)},
            colour);
    }
    void Draw(const Ellipse& ellipse, Colour colour) override {
        const double radius = ellipse.Radius * Scale();
        Add(BareEllipse{Mapped(ellipse.Centre), radius, radius * ellipse.Aspect}, colour);
    }
    void DrawPoint(WorldPoint point, Colour colour) override {
        position_ = Mapped(point);
        Add(BarePoint{position_}, colour);
    }
    void DrawText(const std::string& text, Colour colour) override {
        const QPointF ascent(0, QFontMetrics(Font).ascent());
        Add(BareText{position_ + ascent, QString::fromStdString(text)}, colour);
    }

private:
    template <typename Point>
    QPointF Mapped(const Point& point) const {
        return {(double{point.X} - world_.ViewLeft) * Scale(), (double{world_.ViewTop} - point.Y) * Scale()};
    }
    static QRectF SquareAround(QPointF centre, double radius) {
        return {centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius};
    }
    double Scale() const { return Side / (double{world_.ViewRight} - world_.ViewLeft); }
    void Add(const auto& shape, Colour colour) {
        Calls.push_back({shape, QPen(ToQColor(colour), 1), colour != colour_});
        colour_ = colour;
    }

    ViewRectangle world_{0, 1, 1, 0};
    QPointF position_;
    Colour colour_ = -1;
};

struct Caller {
    QPainter& Painter;

    void operator()(const BareLine& line) const { Painter.drawLine(line.Line); }
    void operator()(const BareArc& arc) const { Painter.drawArc(arc.Square, arc.Start, arc.Span); }
    void operator()(const BareEllipse& ellipse) const {
        Painter.drawEllipse(ellipse.Centre, ellipse.RadiusX, ellipse.RadiusY);
    }
    void operator()(const BarePoint& point) const { Painter.drawPoint(point.Point); }
    void operator()(const BareText& text) const { Painter.drawText(text.Baseline, text.Text); }
};

} // namespace

void BareCalls(benchmark::State& state) {
    const Project project = FullCircuit();
    BareRecorder recorder;
    RedrawCircuit(Pieces(), project, recorder);
    QImage image(Side, Side, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        painter.setFont(recorder.Font);
        painter.fillRect(image.rect(), recorder.Background);
        for (const BareCall& call : recorder.Calls) {
            if (call.ChangesPen) painter.setPen(call.Pen);
            std::visit(Caller{painter}, call.Shape);
        }
    }
    state.counters["calls"] = static_cast<double>(recorder.Calls.size());
}

namespace {

void Redraw(benchmark::State& state) {
    const Project project = FullCircuit();
    QImage image(Side, Side, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        PainterSurface surface(painter, TargetSize::Square(Side));
        RedrawCircuit(Pieces(), project, surface);
    }
}

BENCHMARK(BareCalls)->Name("redraw of 3 x 501 pieces/bare")->Unit(benchmark::kMillisecond);
BENCHMARK(Redraw)->Name("redraw of 3 x 501 pieces/pistaro")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace pistaro

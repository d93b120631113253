// Files for other programs: what each costs against the layout as JSON, and a PDF against the writer's bare calls.
#include "exchange/dxf_file.h"
#include "exchange/layout_files.h"
#include "full_circuit.h"
#include "imaging/pdf_file.h"
#include "imaging/svg_file.h"
#include "render/redraw.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>

#include <numbers>

namespace pistaro {
namespace {

void Layout(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state)
        benchmark::DoNotOptimize(LayoutJsonFile(Pieces(), project.Design.Circuit, AllTracks));
}

void Csv(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state)
        benchmark::DoNotOptimize(LayoutCsvFile(Pieces(), project.Design.Circuit, AllTracks));
}

void Svg(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state) {
        const CircuitDrawing drawing = DrawingOf(Pieces(), project, {});
        SheetOptions options;
        options.Header = false;
        benchmark::DoNotOptimize(SvgOf(drawing, PlanSheets(drawing, options)));
    }
}

void Dxf(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state)
        benchmark::DoNotOptimize(DxfOf(DrawingOf(Pieces(), project, {})));
}

SheetPlan OnA4(const CircuitDrawing& drawing) {
    SheetOptions options;
    options.Paper = PaperA4;
    return PlanSheets(drawing, options);
}

void Pdf(benchmark::State& state) {
    const Project project = FullCircuit();
    for (auto _ : state) {
        const CircuitDrawing drawing = DrawingOf(Pieces(), project, {});
        benchmark::DoNotOptimize(PdfOf(drawing, OnA4(drawing)));
    }
}

/// Each stroke by the painter's own call for it, with a pen that is set where the colour changes.
class BareSurface : public Surface {
public:
    explicit BareSurface(QPainter& painter) : painter_(painter) {}

    void Clear(Colour) override {}
    void SetScale(const ViewRectangle&) override {}
    double PixelsPerCm() const override { return 1; }
    void SetPen(PenWidth) override {}
    void SetFontSize(double) override {}
    void DrawPoint(WorldPoint, Colour) override {}
    void DrawText(const std::string&, Colour) override {}
    void Draw(const LineSegment& line, Colour colour) override {
        UsePen(colour);
        painter_.drawLine(QLineF(line.From.X, -line.From.Y, line.To.X, -line.To.Y));
    }
    void Draw(const ArcSegment& arc, Colour colour) override {
        UsePen(colour);
        constexpr double sixteenths = 16 * 180 / std::numbers::pi;
        painter_.drawArc(QRectF(arc.Centre.X - arc.Radius, -arc.Centre.Y - arc.Radius, 2 * arc.Radius, 2 * arc.Radius),
                         static_cast<int>(arc.Start * sixteenths), static_cast<int>(SpanOf(arc) * sixteenths));
    }
    void Draw(const Ellipse& ellipse, Colour colour) override {
        UsePen(colour);
        painter_.drawEllipse(QPointF(ellipse.Centre.X, -ellipse.Centre.Y), ellipse.Radius,
                             ellipse.Radius * ellipse.Aspect);
    }

private:
    void UsePen(Colour colour) {
        if (colour == colour_) return;
        painter_.setPen(QPen(QColor(Red(colour), Green(colour), Blue(colour)), 0.5));
        colour_ = colour;
    }

    QPainter& painter_;
    Colour colour_ = -1;
};

void BarePdf(benchmark::State& state) {
    const CircuitDrawing drawing = DrawingOf(Pieces(), FullCircuit(), {});
    for (auto _ : state) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        QPainter painter(&writer);
        painter.scale(10, 10);
        BareSurface surface(painter);
        for (const DrawnPiece& piece : drawing.Pieces)
            DrawPiece(piece.Placement, piece.Outline, drawing.Preferences.Colours.Rail, surface);
        painter.end();
        benchmark::DoNotOptimize(bytes);
    }
}

BENCHMARK(Layout)->Name("SVG of 3 x 501 pieces against layout/bare")->Unit(benchmark::kMillisecond);
BENCHMARK(Svg)->Name("SVG of 3 x 501 pieces against layout/pistaro")->Unit(benchmark::kMillisecond);
BENCHMARK(Layout)->Name("DXF of 3 x 501 pieces against layout/bare")->Unit(benchmark::kMillisecond);
BENCHMARK(Dxf)->Name("DXF of 3 x 501 pieces against layout/pistaro")->Unit(benchmark::kMillisecond);
BENCHMARK(Layout)->Name("CSV of 3 x 501 pieces against layout/bare")->Unit(benchmark::kMillisecond);
BENCHMARK(Csv)->Name("CSV of 3 x 501 pieces against layout/pistaro")->Unit(benchmark::kMillisecond);
BENCHMARK(BarePdf)->Name("PDF of 3 x 501 pieces/bare")->Unit(benchmark::kMillisecond);
BENCHMARK(Pdf)->Name("PDF of 3 x 501 pieces/pistaro")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace pistaro

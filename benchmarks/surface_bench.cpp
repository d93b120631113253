// What a frame costs while the view moves or something is shown above the largest circuit, its tracks drawn as they
// look on a canvas of 1920 x 1080, against a full redraw by bare painter calls for the same fills and lines.
#include "editor/view_commands.h"
#include "full_circuit.h"
#include "imaging/cached_drawing.h"
#include "no_prompts.h"
#include "ui/circuit_view.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPaintEngine>
#include <QPainterPath>

#include <stdexcept>
#include <variant>
#include <vector>

namespace pistaro {
namespace {

const CanvasFrame Frame{{1920, 1080}};

struct BarePath {
    QPainterPath Path;
};
struct BarePolygon {
    QPolygonF Points;
    bool Closed;
};
struct BareLines {
    QList<QLineF> Lines;
};
struct BarePoints {
    QPolygonF Points;
};
struct BareText {
    QPointF Baseline;
    QString Text;
    QFont Font;
};
struct BareCall {
    std::variant<BarePath, BarePolygon, BareLines, BarePoints, BareText> Shape;
    QPen Pen;
    QBrush Brush;
    QTransform Transform;
    double Opacity;
};

/// Writes down what reaches a painter.
class RecordingEngine : public QPaintEngine {
public:
    RecordingEngine() : QPaintEngine(AllFeatures) {}

    std::vector<BareCall> Calls;

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& now) override {
        if (now.state() & DirtyPen) pen_ = now.pen();
        if (now.state() & DirtyBrush) brush_ = now.brush();
        if (now.state() & DirtyTransform) transform_ = now.transform();
        if (now.state() & DirtyOpacity) opacity_ = now.opacity();
    }
    void drawPath(const QPainterPath& path) override { Add(BarePath{path}); }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        Add(BarePolygon{Copied(points, count), mode != PolylineMode});
    }
    void drawLines(const QLineF* lines, int count) override { Add(BareLines{QList<QLineF>(lines, lines + count)}); }
    void drawPoints(const QPointF* points, int count) override { Add(BarePoints{Copied(points, count)}); }
    void drawTextItem(const QPointF& place, const QTextItem& text) override {
        Add(BareText{place, text.text(), text.font()});
    }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

private:
    static QPolygonF Copied(const QPointF* points, int count) {
        return QPolygonF(QList<QPointF>(points, points + count));
    }
    template <typename Shape>
    void Add(Shape shape) {
        Calls.push_back({std::move(shape), pen_, brush_, transform_, opacity_});
    }

    QPen pen_;
    QBrush brush_;
    QTransform transform_;
    double opacity_ = 1;
};

class RecordingDevice : public QPaintDevice {
public:
    QPaintEngine* paintEngine() const override { return &engine_; }
    const std::vector<BareCall>& Calls() const { return engine_.Calls; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (static_cast<int>(metric)) {
        case PdmWidth:
            return Frame.Size.width();
        case PdmHeight:
            return Frame.Size.height();
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    mutable RecordingEngine engine_;
};

struct Caller {
    QPainter& Painter;

    void operator()(const BarePath& path) const { Painter.drawPath(path.Path); }
    void operator()(const BarePolygon& polygon) const {
        polygon.Closed ? Painter.drawPolygon(polygon.Points) : Painter.drawPolyline(polygon.Points);
    }
    void operator()(const BareLines& lines) const { Painter.drawLines(lines.Lines); }
    void operator()(const BarePoints& points) const { Painter.drawPoints(points.Points); }
    void operator()(const BareText& text) const {
        Painter.setFont(text.Font);
        Painter.drawText(text.Baseline, text.Text);
    }
};

Project Circuit() {
    Project project = FullCircuit();
    FitView(Pieces(), project.Design);
    project.EditState.ShowNumbers = false;
    return project;
}

std::vector<BareCall> CallsOf(const Project& project) {
    RecordingDevice device;
    {
        QPainter painter(&device);
        painter.translate(Frame.Square().topLeft());
        PainterSurface surface(painter, TargetSize::Square(Frame.Square().width()));
        surface.Uncover(QRectF(-Frame.Square().topLeft(), QSizeF(Frame.Size)));
        ShowView(project.Design.View, surface);
        DrawRecedingGrid(project.Preferences, Frame.Covered(project.Design.View), project.Design.View.Width, surface);
        const auto& circuit = project.Design.Circuit;
        DrawCircuitSurface(Pieces(), project, BridgesOf(Pieces(), circuit, project.EditState.CurrentTrack), painter,
                           surface);
    }
    return device.Calls();
}

void BareSurface(benchmark::State& state) {
    const Project project = Circuit();
    const std::vector<BareCall> calls = CallsOf(project);
    if (calls.size() < 1503) throw std::logic_error("nothing was drawn");
    QImage image(Frame.Size, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        painter.fillRect(image.rect(), Qt::white);
        for (const BareCall& call : calls) {
            painter.setPen(call.Pen);
            painter.setBrush(call.Brush);
            painter.setTransform(call.Transform);
            painter.setOpacity(call.Opacity);
            std::visit(Caller{painter}, call.Shape);
        }
    }
    state.counters["calls"] = static_cast<double>(calls.size());
}

void RedrawSurface(benchmark::State& state) {
    Project project = Circuit();
    CachedDrawing drawing;
    float step = 1;
    for (auto _ : state) {
        project.Design.View.MidX += step = -step; // the ground, too, is drawn
        drawing.Redraw(Pieces(), project, {}, Frame, TrackLook::Surface);
    }
}

struct Canvas {
    Canvas() {
        Session.Looks.Surface = true;
        View.resize(Frame.Size);
        View.show();
        QApplication::processEvents();
        Observed = Session.Observe([this](const Changes& changes) { View.Invalidate(changes); });
        View.Redraw();
    }

    NoPrompts Words;
    pistaro::Session Session{Pieces(), Words, Circuit(), {}};
    CircuitView View{Session};
    Observation Observed;
};

void Pan(benchmark::State& state) {
    Canvas canvas;
    double step = 7;
    int frames = 0;
    for (auto _ : state) {
        if (++frames % 20 == 0) step = -step;
        canvas.Session.Do([&] {
            ViewSettings& view = canvas.Session.Project.Design.View;
            CentreView(view, view.MidX + step, view.MidY + step / 2);
        });
        canvas.View.repaint();
    }
}

void Zoom(benchmark::State& state) {
    Canvas canvas;
    int notches = 1;
    for (auto _ : state) {
        canvas.Session.Do([&] { ZoomByNotches(canvas.Session.Project.Design.View, {0, 0}, notches, false); });
        notches = -notches;
        canvas.View.repaint();
    }
}

void Hover(benchmark::State& state) {
    Canvas canvas;
    float x = 0;
    for (auto _ : state) {
        x += 1;
        canvas.View.SetOverlay("hover", {OverlayPath{.Path = {LineSegment{{x, 0}, {x, 35}}}}});
        canvas.View.repaint();
    }
}

void Ghost(benchmark::State& state) {
    Canvas canvas;
    float y = 0;
    for (auto _ : state) {
        y += 1;
        canvas.View.SetOverlay("ghost", {OverlayPieces{.Codes = {"C151L"}, .Start = {0, y, 0}},
                                         OverlayText{{0, y}, "C151 · 3 left · gap 17.5 cm"}});
        canvas.View.repaint();
    }
}

/// A piece held before the first one: all of the longest track fades and stands anew.
void MakeRoom(benchmark::State& state) {
    Canvas canvas;
    const std::vector<std::string>& codes = canvas.Session.Project.Design.Circuit.Tracks[0].ElementCodes;
    float y = 0;
    for (auto _ : state) {
        y += 1;
        canvas.View.SetOverlay("displaced", {OverlayPieces{.Codes = codes, .Look = PieceLook::Faded},
                                             OverlayPieces{codes, {0, y, 0}, "C160", 0, PieceLook::Light}});
        canvas.View.repaint();
    }
}

const bool Registered = [] {
    using Work = void (*)(benchmark::State&);
    const std::pair<const char*, Work> works[] = {{"surface redraw", RedrawSurface},
                                                  {"pan", Pan},
                                                  {"zoom", Zoom},
                                                  {"hover", Hover},
                                                  {"ghost", Ghost},
                                                  {"room made", MakeRoom}};
    for (const auto& [name, work] : works) {
        const std::string full = std::string(name) + " of 3 x 501 pieces on 1920 x 1080";
        benchmark::RegisterBenchmark((full + "/bare").c_str(), BareSurface)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((full + "/pistaro").c_str(), work)->Unit(benchmark::kMillisecond);
    }
    return true;
}();

} // namespace
} // namespace pistaro

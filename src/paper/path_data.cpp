#include "paper/path_data.h"

#include "text/decimal_text.h"

#include <cmath>
#include <numbers>

namespace pistaro {

namespace {

void AppendPlace(std::string& path, char command, double x, double y) {
    path += command;
    AppendDecimal(path, x, PathDecimals);
    path += ' ';
    AppendDecimal(path, -y, PathDecimals);
}

struct Axes {
    double X, Y, Across, Up;
};

/// From an angle on anticlockwise. The format knows no arc that ends where it begins, nor which way a half turn goes.
void AppendTurn(std::string& path, const Axes& axes, double start, double span) {
    std::string radii;
    AppendDecimal(radii, axes.Across, PathDecimals);
    radii += ' ';
    AppendDecimal(radii, axes.Up, PathDecimals);
    const int parts = span > std::numbers::pi * 0.9 ? 2 : 1;
    for (int part = 0; part <= parts; ++part) {
        const double angle = start + span * part / parts;
        if (part > 0) path.append("A").append(radii).append(" 0 0 0");
        AppendPlace(path, part > 0 ? ' ' : 'M', axes.X + axes.Across * std::cos(angle),
                    axes.Y + axes.Up * std::sin(angle));
    }
}

} // namespace

void AppendPath(std::string& path, const LineSegment& line) {
    AppendPlace(path, 'M', line.From.X, line.From.Y);
    AppendPlace(path, 'L', line.To.X, line.To.Y);
}

void AppendPath(std::string& path, const ArcSegment& arc) {
    AppendTurn(path, {arc.Centre.X, arc.Centre.Y, arc.Radius, arc.Radius}, arc.Start, SpanOf(arc));
}

void AppendPath(std::string& path, const Ellipse& ellipse) {
    AppendTurn(path, {ellipse.Centre.X, ellipse.Centre.Y, ellipse.Radius, ellipse.Radius * ellipse.Aspect}, 0,
               2 * std::numbers::pi);
}

std::string PathOf(const PiecePlacement& placement, Strokes strokes) {
    std::string path;
    ForEachStroke(placement, strokes, [&](const auto& shape) { AppendPath(path, shape); });
    return path;
}

} // namespace pistaro

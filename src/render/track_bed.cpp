#include "render/track_bed.h"

#include "layout/outline.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace pistaro {

namespace {

constexpr double Tolerance = 0.01; ///< cm that an edge may stray from its arc

WorldPoint PointBy(double x, double y) { return {static_cast<float>(x), static_cast<float>(y)}; }

/// The band of that width along an arc, from one angle on.
FilledArea BandAlong(const ArcSegment& arc, double from, double span, double width, Colour fill) {
    FilledArea band{{}, fill};
    const double widest = 2 * std::acos(1 - std::min(1.0, Tolerance / (arc.Radius + width / 2)));
    const int chords = std::max(1, static_cast<int>(std::ceil(span / widest)));
    const auto add = [&](double radius, int chord) {
        const double angle = from + span * chord / chords;
        band.Polygon.push_back(
            PointBy(arc.Centre.X + radius * std::cos(angle), arc.Centre.Y + radius * std::sin(angle)));
    };
    for (int chord = 0; chord <= chords; ++chord)
        add(arc.Radius + width / 2, chord);
    for (int chord = chords; chord >= 0; --chord)
        add(arc.Radius - width / 2, chord);
    return band;
}

FilledArea BandAlong(const ArcSegment& arc, double width, Colour fill) {
    return BandAlong(arc, arc.Start, SpanOf(arc), width, fill);
}

FilledArea BandAlong(const LineSegment& line, double width, Colour fill) {
    const double right = double{line.To.X} - line.From.X;
    const double up = double{line.To.Y} - line.From.Y;
    const double length = std::hypot(right, up);
    const double x = length > 0 ? -up / length * width / 2 : 0;
    const double y = length > 0 ? right / length * width / 2 : 0;
    return {{PointBy(line.From.X + x, line.From.Y + y), PointBy(line.To.X + x, line.To.Y + y),
             PointBy(line.To.X - x, line.To.Y - y), PointBy(line.From.X - x, line.From.Y - y)},
            fill};
}

void AddKerb(std::vector<FilledArea>& areas, const ArcSegment& kerb) {
    const int pairs = std::max(1, static_cast<int>(std::lround(SpanOf(kerb) * kerb.Radius / (2 * KerbBlock))));
    const int blocks = 2 * pairs; // so that they go on from piece to piece
    const double step = SpanOf(kerb) / blocks;
    areas.push_back(BandAlong(kerb, KerbWidth, KerbWhite));
    for (int at = 0; at < blocks; at += 2)
        areas.push_back(BandAlong(kerb, kerb.Start + at * step, step, KerbWidth, KerbRed));
}

void AddLane(std::vector<FilledArea>& areas, const Lane& lane) {
    const Colour rail = lane.Side == LaneSide::Left ? LeftLaneColour : RightLaneColour;
    const auto add = [&](double width, Colour fill) {
        for (const Segment& segment : lane.Path)
            areas.push_back(std::visit([&](const auto& shape) { return BandAlong(shape, width, fill); }, segment));
    };
    add(RailWidth, rail);
    add(SlotWidth, SlotColour);
}

/// The middle of the kerb along a curve's outer edge; nothing for other pieces.
std::optional<ArcSegment> KerbOf(const PiecePlacement& placement) {
    const auto* const outer = std::get_if<ArcSegment>(&placement.Outline[1]);
    if (outer == nullptr || std::get_if<ArcSegment>(&placement.Outline[0]) == nullptr) return std::nullopt;
    ArcSegment kerb = *outer;
    kerb.Radius -= KerbWidth / 2;
    return kerb;
}

} // namespace

std::vector<FilledArea> StartMarksOf(const Corners& corners) {
    constexpr int squares = 10;
    constexpr double side = 1.55; // cm
    constexpr Colour white = Rgb(255, 255, 255);
    const double right = double{corners.OtherEntry.X} - corners.Entry.X;
    const double up = double{corners.OtherEntry.Y} - corners.Entry.Y;
    const double width = std::hypot(right, up);
    const auto place = [&](double across, double onwards) {
        return PointBy(corners.Entry.X + (right * across - up * onwards) / width,
                       corners.Entry.Y + (up * across + right * onwards) / width);
    };
    const auto box = [&](double left, double near, double wide, double high, Colour fill) {
        return FilledArea{
            {place(left, near), place(left + wide, near), place(left + wide, near + high), place(left, near + high)},
            fill};
    };
    const double step = width / squares;
    std::vector<FilledArea> marks;
    marks.reserve(squares + 2);
    marks.push_back(box(0, 0, width, 2 * side, white));
    for (int column = 0; column < squares; ++column)
        marks.push_back(box(column * step, column % 2 * side, step, side, Rgb(0, 0, 0)));
    const double middle = width / 2;
    marks.push_back({{place(middle - 2.4, 2 * side + 1.2), place(middle, 2 * side + 2.4),
                      place(middle + 2.4, 2 * side + 1.2), place(middle, 2 * side + 6.5)},
                     white});
    return marks;
}

std::vector<FilledArea> BedOf(const PiecePlacement& placement, bool isFirst) {
    std::vector<FilledArea> areas{{OutlinePolygon(placement, Tolerance), AsphaltColour}};
    if (const auto kerb = KerbOf(placement)) AddKerb(areas, *kerb);
    for (const Lane& lane : placement.Lanes)
        AddLane(areas, lane);
    if (isFirst) std::ranges::move(StartMarksOf(placement.Corners), std::back_inserter(areas));
    return areas;
}

} // namespace pistaro

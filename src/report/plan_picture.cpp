#include "report/plan_picture.h"

#include "layout/piece_middle.h"
#include "paper/clear_places.h"
#include "paper/laid_size.h"
#include "text/number_text.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

namespace pistaro {

namespace {

constexpr double PaperMargin = 0.75; ///< cm of paper around what a picture is about, for numbers that stand aside
constexpr double LeastAcross = 90;   ///< cm of the world: a lone piece is to be seen among its neighbours
constexpr Colour ArrowColour = ShownColour;

/// An arrow with its tip so far beyond a piece's entry, by `size` long.
FilledArea ArrowAt(const Corners& corners, double tip, double size) {
    const WorldPoint entry = Between(corners.Entry, corners.OtherEntry);
    const Way across = AcrossEntry(corners);
    const Way onwards{-across.Y, across.X}; // the reference edge is the left one
    const auto place = [&](double along, double aside) {
        return PointBy(entry.X + onwards.X * along + across.X * aside, entry.Y + onwards.Y * along + across.Y * aside);
    };
    return {{place(tip, 0), place(tip - 0.55 * size, 0.42 * size), place(tip - 0.55 * size, 0.15 * size),
             place(tip - size, 0.15 * size), place(tip - size, -0.15 * size), place(tip - 0.55 * size, -0.15 * size),
             place(tip - 0.55 * size, -0.42 * size)},
            ArrowColour};
}

/// At which a box fits into an area with `margin` cm of paper around it.
double FittingScale(const Box& box, PictureArea area, double margin) {
    return std::max({box.Width() / (area.Width - 2 * margin), box.Height() / (area.Height - 2 * margin),
                     LeastAcross / std::max(area.Width, area.Height)});
}

/// The part of the world that an area shows around a box, `margin` cm of paper of it around the box.
PlanPicture PictureAround(const Box& box, PictureArea area, double margin, double scale = 0) {
    PlanPicture picture;
    picture.Scale = std::max(scale, FittingScale(box, area, margin));
    picture.Part = BoxAround(box.MiddleX(), box.MiddleY(), area.Width * picture.Scale, area.Height * picture.Scale);
    return picture;
}

/// A box of its paper, from the lower left corner, as the world that it covers.
Box InWorld(const PlanPicture& picture, const Box& paper) {
    const auto x = [&](double cm) { return picture.Part.Left + cm * picture.Scale; };
    const auto y = [&](double cm) { return picture.Part.Bottom + cm * picture.Scale; };
    return {x(paper.Left), y(paper.Bottom), x(paper.Right), y(paper.Top)};
}

Box BoxOfPieces(const BuildPlan& plan, int first, int last) {
    Box box;
    for (int at = first; at <= last; ++at)
        box.Include(plan.Piece(at).Extent);
    return box;
}

/// The longest round length that is short on paper.
ScaleBar BarAt(double scale, const Units& units) {
    constexpr double longest = 2.5; // cm of paper
    const TrackRule rule = LongestRule(longest * scale, units);
    return {rule.Length / scale, rule.Text};
}

/// Into the first corner in which it hides neither a wall nor one of the plan's pieces up to that one; else the first
/// in which it hides no piece; the first of all where none is.
void PlaceBar(PlanPicture& picture, const BuildPlan& plan, int last, PictureArea area) {
    picture.Bar = BarAt(picture.Scale, plan.Drawing.Preferences.Units);
    ScaleBar& bar = picture.Bar;
    const Box ground = bar.Ground();
    const double right = area.Width - ground.Width(), up = BarInset + area.Height - ground.Top - ground.Bottom;
    std::optional<ScaleBar> freeOfPieces;
    for (const auto& [left, bottom] : {std::pair(BarInset, BarInset), {right, BarInset}, {BarInset, up}, {right, up}}) {
        bar.Left = left;
        bar.Up = bottom;
        const Box hidden = InWorld(picture, bar.Ground());
        bool isFree = true;
        for (int at = 0; at <= last && isFree; ++at)
            isFree = !plan.Piece(at).Extent.Meets(hidden);
        if (!isFree) continue;
        if (IsClearOfWalls(plan.Drawing.Room, hidden)) return;
        if (!freeOfPieces) freeOfPieces = bar;
    }
    bar.Left = bar.Up = BarInset;
    if (freeOfPieces) bar = *freeOfPieces;
}

/// A line across the track where a step begins behind another one.
FilledArea PartingAt(const Corners& corners, double scale) {
    constexpr double beyond = 0.22, half = 0.05; // cm of paper
    const WorldPoint entry = Between(corners.Entry, corners.OtherEntry);
    const Way across = AcrossEntry(corners);
    const double length = Distance(corners.Entry, corners.OtherEntry) / 2 + beyond * scale;
    const auto place = [&](double aside, double along) {
        return PointBy(entry.X + across.X * aside - across.Y * along, entry.Y + across.Y * aside + across.X * along);
    };
    const double thick = half * scale;
    return {{place(-length, -thick), place(length, -thick), place(length, thick), place(-length, thick)}, ShownColour};
}

/// The start lines of the tracks that have been begun with.
void AddStarts(PlanPicture& picture, const BuildPlan& plan, int last) {
    for (const BuildStep& track : WholeTracks(plan)) {
        if (track.First > last) return;
        std::vector<FilledArea> marks = StartMarksOf(plan.Piece(track.First).Placement.Corners);
        marks.back().Fill = Rgb(0, 0, 0); // its arrow is white, for asphalt
        std::ranges::move(marks, std::back_inserter(picture.Marks));
    }
}

/// Finds places for numbers in a picture, beside its scale bar.
BadgePlaces PlacesIn(const PlanPicture& picture) {
    BadgePlaces places(picture.Part, picture.Scale, PlanBadgeHeight);
    places.Reserve(InWorld(picture, picture.Bar.Ground()));
    return places;
}

} // namespace

Box ScaleBar::Ground() const {
    constexpr double words = 1.4, below = 0.12, above = 0.4, before = 0.12; // cm of paper
    return {Left - before, Up - below, Left + Length + words, Up + above};
}

std::vector<double> StepScales(const BuildPlan& plan, PictureArea area) {
    constexpr double most = 3; // times as small as it fits
    std::vector<double> scales, shared;
    for (const BuildStep& step : plan.Steps)
        scales.push_back(FittingScale(BoxOfPieces(plan, step.First, step.Last), area, PaperMargin));
    std::vector<double> falling = scales;
    std::ranges::sort(falling, std::greater());
    for (const double scale : falling) {
        if (shared.empty() || scale * most < shared.back()) shared.push_back(scale);
    }
    for (double& scale : scales)
        scale = *std::find_if(shared.rbegin(), shared.rend(), [&](double one) { return one >= scale; });
    return scales;
}

PlanPicture PictureOf(const BuildPlan& plan, const BuildStep& step, PictureArea area, double scale) {
    constexpr double arrowLength = 0.6; // cm of paper
    PlanPicture picture = PictureAround(BoxOfPieces(plan, step.First, step.Last), area, PaperMargin, scale);
    PlaceBar(picture, plan, step.Last, area);
    AddStarts(picture, plan, step.Last);
    picture.Marks.push_back(ArrowAt(plan.Piece(step.First).Placement.Corners, 0, arrowLength * picture.Scale));
    BadgePlaces places = PlacesIn(picture);
    for (int at = step.First; at <= step.Last; ++at)
        places.Add(NumberText(plan.Piece(at).Index), plan.Piece(at).Placement);
    picture.Badges = std::move(places.Badges);
    return picture;
}

PlanPicture WholePicture(const BuildPlan& plan, PictureArea area) {
    PlanPicture picture = PictureAround(plan.Drawing.Extent, area, PaperMargin);
    const int last = static_cast<int>(plan.Drawing.Pieces.size()) - 1;
    PlaceBar(picture, plan, last, area);
    AddStarts(picture, plan, last);
    if (plan.Steps.size() < 2) return picture;
    for (std::size_t step = 1; step < plan.Steps.size(); ++step) {
        const DrawnPiece& first = plan.Piece(plan.Steps[step].First);
        const bool goesOn = plan.Piece(plan.Steps[step - 1].Last).Track == first.Track;
        if (goesOn) picture.Marks.push_back(PartingAt(first.Placement.Corners, picture.Scale));
    }
    BadgePlaces places = PlacesIn(picture);
    for (std::size_t step = 0; step < plan.Steps.size(); ++step)
        places.Add(std::to_string(step + 1),
                   plan.Piece((plan.Steps[step].First + plan.Steps[step].Last) / 2).Placement);
    picture.Badges = std::move(places.Badges);
    return picture;
}

PlanPicture Overview(const BuildPlan& plan, const BuildStep& step, PictureArea area) {
    constexpr double margin = 0.35, arrowLength = 0.5; // cm of paper
    PlanPicture picture =
        PictureAround(BoxOfPieces(plan, 0, static_cast<int>(plan.Drawing.Pieces.size()) - 1), area, margin);
    for (const BuildStep& track : WholeTracks(plan)) {
        if (plan.Piece(track.First).Track != plan.Piece(step.First).Track) continue;
        const double length = arrowLength * picture.Scale;
        picture.Marks.push_back(ArrowAt(plan.Piece(track.First).Placement.Corners, length, length));
        picture.Marks.back().Fill = Rgb(0, 0, 0); // the start is black, where the step begins is blue
    }
    return picture;
}

Box PartIn(const PlanPicture& overview, const Box& part) {
    constexpr double line = 0.05; // cm of paper
    const Box inside = overview.Part.Wider(-line * overview.Scale);
    return {std::max(part.Left, inside.Left), std::max(part.Bottom, inside.Bottom), std::min(part.Right, inside.Right),
            std::min(part.Top, inside.Top)};
}

std::vector<WorldPoint> MiddleLine(const BuildPlan& plan, const BuildStep& pieces) {
    std::vector<WorldPoint> line;
    for (int at = pieces.First; at <= pieces.Last; ++at) {
        const PiecePlacement& placement = plan.Piece(at).Placement;
        const Corners& corners = placement.Corners;
        if (at == pieces.First) line.push_back(Between(corners.Entry, corners.OtherEntry));
        line.push_back(MiddleOfPiece(placement));
        line.push_back(Between(corners.Exit, corners.OtherExit));
    }
    return line;
}

std::vector<BuildStep> WholeTracks(const BuildPlan& plan) {
    std::vector<BuildStep> tracks;
    for (const BuildStep& step : plan.Steps) {
        const bool goesOn = !tracks.empty() && plan.Piece(tracks.back().First).Track == plan.Piece(step.First).Track;
        if (goesOn) {
            tracks.back().Last = step.Last;
        } else {
            tracks.push_back(step);
        }
    }
    return tracks;
}

} // namespace pistaro

#include "report/plan_picture.h"

#include "layout/ground.h"
#include "text/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace pistaro {

namespace {

constexpr double PaperMargin = 0.9; ///< cm of paper around what a picture is about, for numbers that stand aside
constexpr double LeastAcross = 90;  ///< cm of the world: a lone piece is to be seen among its neighbours
constexpr Colour ArrowColour = ShownColour;

WorldPoint PointBy(double x, double y) { return {static_cast<float>(x), static_cast<float>(y)}; }

WorldPoint Between(WorldPoint one, WorldPoint other) {
    return PointBy((double{one.X} + other.X) / 2, (double{one.Y} + other.Y) / 2);
}

WorldPoint MiddleOfPiece(const PiecePlacement& placement) {
    const GroundPoint middle = MiddleOf(GroundOf(placement));
    return PointBy(middle.X, middle.Y);
}

double Distance(WorldPoint from, WorldPoint to) { return std::hypot(double{from.X} - to.X, double{from.Y} - to.Y); }

/// A unit vector.
struct Way {
    double X = 1, Y = 0;
};

/// From the reference edge to the other one.
Way AcrossEntry(const Corners& corners) {
    const double length = Distance(corners.Entry, corners.OtherEntry);
    if (length == 0) return {};
    return {(double{corners.OtherEntry.X} - corners.Entry.X) / length,
            (double{corners.OtherEntry.Y} - corners.Entry.Y) / length};
}

/// Across a piece in its middle.
Way AcrossMiddle(const Corners& corners) {
    const WorldPoint from = Between(corners.Entry, corners.Exit);
    const WorldPoint to = Between(corners.OtherEntry, corners.OtherExit);
    const double length = Distance(from, to);
    if (length == 0) return AcrossEntry(corners);
    return {(double{to.X} - from.X) / length, (double{to.Y} - from.Y) / length};
}

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

Box BoxOfPieces(const BuildPlan& plan, int first, int last) {
    Box box;
    for (int at = first; at <= last; ++at)
        box.Include(plan.Piece(at).Extent);
    return box;
}

/// The longest round length that is short on paper, in the user's units.
ScaleBar BarAt(double scale, const Units& units) {
    constexpr double longest = 2.5; // cm of paper
    const double unit = units.UnitFactor();
    double length = 1;
    for (const double round : {2, 5, 10, 20, 50, 100, 200, 500, 1000}) {
        if (round * unit / scale <= longest) length = round;
    }
    return {length * unit / scale, NumberText(length) + " " + units.Name()};
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

/// Finds places for numbers one after the other.
class BadgePlaces {
public:
    explicit BadgePlaces(PlanPicture& picture) : picture_(picture) {
        constexpr double height = 0.65, words = 1.5; // cm of paper
        const Box& part = picture.Part;
        taken_.push_back({part.Left, part.Bottom, part.Left + (BarInset + picture.Bar.Length + words) * picture.Scale,
                          part.Bottom + height * picture.Scale});
    }

    /// On the piece where it is large enough and no other number stands there, else beside it.
    void Add(const std::string& text, const PiecePlacement& placement) {
        constexpr double digit = 0.21; // cm of paper
        NumberBadge badge{text, MiddleOfPiece(placement), MiddleOfPiece(placement),
                          std::max(BadgeHeight, 0.2 + digit * static_cast<double>(text.size()))};
        const Corners& corners = placement.Corners;
        const double length =
            Distance(Between(corners.Entry, corners.OtherEntry), Between(corners.Exit, corners.OtherExit));
        const bool fits = length >= badge.Width * 1.1 * picture_.Scale && IsFree(badge);
        if (!fits) MoveAside(badge, corners);
        taken_.push_back(BoxOfBadge(badge));
        picture_.Badges.push_back(std::move(badge));
    }

private:
    Box BoxOfBadge(const NumberBadge& badge) const {
        return BoxAround(badge.Place.X, badge.Place.Y, badge.Width * picture_.Scale, BadgeHeight * picture_.Scale);
    }

    bool IsFree(const NumberBadge& badge) const {
        const Box box = BoxOfBadge(badge);
        const bool inside = box.Left >= picture_.Part.Left && box.Right <= picture_.Part.Right &&
                            box.Bottom >= picture_.Part.Bottom && box.Top <= picture_.Part.Top;
        return inside && std::ranges::none_of(taken_, [&](const Box& other) { return other.Meets(box); });
    }

    /// To the nearest free place across the track; where there is none it stays.
    void MoveAside(NumberBadge& badge, const Corners& corners) const {
        const Way across = AcrossMiddle(corners);
        const double edge = Distance(corners.Entry, corners.OtherEntry) / 2;
        for (const double away : {0.4, 0.95, 1.5, 2.05}) {
            for (const int side : {1, -1}) {
                const double way = side * (edge + away * picture_.Scale);
                NumberBadge moved = badge;
                moved.Place = PointBy(badge.Foot.X + across.X * way, badge.Foot.Y + across.Y * way);
                if (!IsFree(moved)) continue;
                badge.Place = moved.Place;
                return;
            }
        }
    }

    PlanPicture& picture_;
    std::vector<Box> taken_;
};

} // namespace

std::vector<double> StepScales(const BuildPlan& plan, PictureArea area) {
    constexpr double most = 2; // times as small as it fits
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
    picture.Bar = BarAt(picture.Scale, plan.Drawing.Preferences.Units);
    AddStarts(picture, plan, step.Last);
    picture.Marks.push_back(ArrowAt(plan.Piece(step.First).Placement.Corners, 0, arrowLength * picture.Scale));
    BadgePlaces places(picture);
    for (int at = step.First; at <= step.Last; ++at)
        places.Add(NumberText(plan.Piece(at).Index), plan.Piece(at).Placement);
    return picture;
}

PlanPicture WholePicture(const BuildPlan& plan, PictureArea area) {
    PlanPicture picture = PictureAround(plan.Drawing.Extent, area, PaperMargin);
    picture.Bar = BarAt(picture.Scale, plan.Drawing.Preferences.Units);
    AddStarts(picture, plan, static_cast<int>(plan.Drawing.Pieces.size()));
    if (plan.Steps.size() < 2) return picture;
    BadgePlaces places(picture);
    for (std::size_t step = 0; step < plan.Steps.size(); ++step)
        places.Add(std::to_string(step + 1),
                   plan.Piece((plan.Steps[step].First + plan.Steps[step].Last) / 2).Placement);
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

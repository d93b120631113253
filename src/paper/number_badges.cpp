#include "paper/number_badges.h"

#include "layout/piece_middle.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

/// How far a point lies from a box; nothing within it.
double DistanceTo(const Box& box, WorldPoint point) {
    return std::hypot(std::max({box.Left - point.X, 0.0, point.X - box.Right}),
                      std::max({box.Bottom - point.Y, 0.0, point.Y - box.Top}));
}

/// The middle of a stretch that long, moved by the least so that it lies between two ends; in their midst when it is
/// longer than the way between them.
double Pushed(double middle, double length, double from, double to) {
    if (length >= to - from) return (from + to) / 2;
    return std::clamp(middle, from + length / 2, to - length / 2);
}

} // namespace

void BadgePlaces::Add(const std::string& text, const PiecePlacement& placement) { Add(text, placement, false); }

void BadgePlaces::AddWithin(const std::string& text, const PiecePlacement& placement) { Add(text, placement, true); }

void BadgePlaces::Add(const std::string& text, const PiecePlacement& placement, bool within) {
    constexpr double digit = 0.42, ends = 0.4; // of its height
    const WorldPoint middle = MiddleOfPiece(placement);
    const double width = height_ * ends + height_ * digit * static_cast<double>(text.size());
    NumberBadge badge{text, middle, middle, std::max(height_, width), height_};
    if (within) PushIn(badge);
    const Corners& corners = placement.Corners;
    const double length =
        Distance(Between(corners.Entry, corners.OtherEntry), Between(corners.Exit, corners.OtherExit));
    const bool fits = length >= badge.Width * 1.1 * scale_ && IsFree(badge);
    if (!fits) MoveAside(badge, corners, within);
    taken_.push_back(badge.Ground(scale_));
    Badges.push_back(std::move(badge));
}

bool BadgePlaces::IsFree(const NumberBadge& badge) const {
    const Box box = badge.Ground(scale_);
    const bool inside =
        box.Left >= part_.Left && box.Right <= part_.Right && box.Bottom >= part_.Bottom && box.Top <= part_.Top;
    return inside && std::ranges::none_of(taken_, [&](const Box& other) { return other.Meets(box); });
}

/// To the nearest free place across the track; where there is none it stays.
void BadgePlaces::MoveAside(NumberBadge& badge, const Corners& corners, bool within) const {
    const Way across = AcrossMiddle(corners);
    const double edge = Distance(corners.Entry, corners.OtherEntry) / 2;
    for (const double away : {0.8, 1.9, 3.0, 4.1}) {
        for (const int side : {1, -1}) {
            const double way = side * (edge + away * height_ * scale_);
            NumberBadge moved = badge;
            moved.Place = PointBy(badge.Foot.X + across.X * way, badge.Foot.Y + across.Y * way);
            if (within) PushIn(moved);
            if (!IsFree(moved)) continue;
            badge.Place = moved.Place;
            return;
        }
    }
}

void BadgePlaces::PushIn(NumberBadge& badge) const {
    constexpr double air = 0.15; // cm of paper between it and the cut
    const Box room = part_.Wider(-air * scale_);
    badge.Place = PointBy(Pushed(badge.Place.X, badge.Width * scale_, room.Left, room.Right),
                          Pushed(badge.Place.Y, badge.Height * scale_, room.Bottom, room.Top));
}

double BadgeHeightAt(double scale, const Box& area) {
    constexpr double pixelsPerCm = 96 / 2.54;
    constexpr double heightOfFont = 1.4; // the badge's, of its font's size
    constexpr double most = 0.2;         // of the paper
    return std::min(heightOfFont * NumberSize(pixelsPerCm / scale) / scale,
                    most * std::min(area.Width(), area.Height()));
}

std::vector<std::vector<NumberBadge>> NumbersIn(const CircuitDrawing& drawing, const std::vector<Box>& parts,
                                                double scale, double height) {
    std::vector<BadgePlaces> places;
    places.reserve(parts.size());
    for (const Box& part : parts)
        places.emplace_back(part, scale, height);
    std::vector<std::vector<NumberBadge>> badges(parts.size());
    if (!drawing.Parts.Numbers || parts.empty()) return badges;
    for (const DrawnPiece& piece : drawing.Pieces) {
        const WorldPoint middle = MiddleOfPiece(piece.Placement);
        const auto nearest =
            std::ranges::min_element(parts, {}, [&](const Box& part) { return DistanceTo(part, middle); });
        places[static_cast<std::size_t>(nearest - parts.begin())].AddWithin(NumberText(piece.Index), piece.Placement);
    }
    std::ranges::transform(places, badges.begin(), [](BadgePlaces& place) { return std::move(place.Badges); });
    return badges;
}

} // namespace pistaro

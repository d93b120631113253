#include "search/loop.h"

#include "layout/clearance.h"
#include "layout/overlap.h"
#include "layout/wall_contact.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace pistaro {

namespace {

constexpr double StartStep = 0.01;  ///< of a loop's start, cm
constexpr double ChordStray = 0.05; ///< by which distances of curves from walls are too small at most, cm

void Move(GroundPoint& point, GroundPoint shift) {
    point.X += shift.X;
    point.Y += shift.Y;
}

Ground Moved(Ground ground, GroundPoint shift) {
    ground.Box.Left += shift.X;
    ground.Box.Right += shift.X;
    ground.Box.Bottom += shift.Y;
    ground.Box.Top += shift.Y;
    for (GroundPoint& corner : ground.Corners)
        Move(corner, shift);
    Move(ground.Centre, shift);
    return ground;
}

void Include(GroundBox& all, const GroundBox& box) {
    all.Left = std::min(all.Left, box.Left);
    all.Right = std::max(all.Right, box.Right);
    all.Bottom = std::min(all.Bottom, box.Bottom);
    all.Top = std::max(all.Top, box.Top);
}

GroundBox Nothing() {
    constexpr double far = std::numeric_limits<double>::max();
    return {far, -far, far, -far};
}

/// How far least..most must be moved to lie within from..to; 0 where it lies there.
double ShiftWithin(double least, double most, double from, double to) {
    if (least < from) return from - least;
    if (most > to) return to - most;
    return 0;
}

double DistanceTo(const Wall& wall, GroundPoint point) {
    const double alongX = wall.To.X - wall.From.X;
    const double alongY = wall.To.Y - wall.From.Y;
    const double share =
        ((point.X - wall.From.X) * alongX + (point.Y - wall.From.Y) * alongY) / (alongX * alongX + alongY * alongY);
    const double nearest = std::clamp(share, 0.0, 1.0);
    return std::hypot(point.X - wall.From.X - nearest * alongX, point.Y - wall.From.Y - nearest * alongY);
}

} // namespace

BuildCursor Loop::Cursor() const {
    const auto rounded = [](double value, double step) { return static_cast<float>(std::round(value * step) / step); };
    constexpr double perCm = 1 / StartStep, perRadian = 1e6;
    return {rounded(Start.X, perCm), rounded(Start.Y, perCm), rounded(AngleOf(Start.Heading), perRadian)};
}

Rows RowsOf(const std::vector<LayingStep>& steps, const Run& run) {
    Rows rows;
    rows.reserve(run.size());
    for (const std::uint8_t index : run) {
        const LayingStep& step = steps[index];
        if (step.Kept.empty()) {
            rows.push_back(step.Row);
        } else {
            rows.insert(rows.end(), step.Kept.begin(), step.Kept.end());
        }
    }
    return rows;
}

std::optional<Loop> LoopOf(const Catalogue& catalogue, const std::vector<LayingStep>& steps, ShapeCounts shapes,
                           const Rows& rows, const SearchPose& start, std::size_t kept) {
    Loop loop{{}, start};
    if (kept > 0) loop.Steps.push_back(static_cast<std::uint8_t>(steps.size() - 1));
    for (std::size_t i = kept; i < rows.size(); ++i) {
        const CatalogueEntry& piece = catalogue[rows[i]];
        const auto step = std::ranges::find_if(steps, [&](const LayingStep& one) {
            return one.Shape == piece.ShapeIndex && Hand(catalogue[one.Row].Code) == Hand(piece.Code);
        });
        if (step == steps.end() || step->JoinsSystems() || --shapes[static_cast<std::size_t>(step->Shape)] < 0)
            return std::nullopt;
        loop.Steps.push_back(static_cast<std::uint8_t>(step - steps.begin()));
    }
    const LaidLoop laid = LayLoop(catalogue, RowsOf(steps, loop.Steps), loop.Cursor());
    constexpr double pressedTogether = 1; // cm
    loop.Tolerance = std::max(LoopTolerance, laid.Gap.Distance + 2 * StartStep);
    if (!IsClosed(laid, pressedTogether) || !IsWholeTurn(steps, loop.Steps) || OverlapsItself(laid, {}))
        return std::nullopt;
    return loop;
}

LaidLoop LayLoop(const Catalogue& catalogue, const Rows& rows, const BuildCursor& start) {
    LaidLoop laid{.Grounds = {}, .Box = Nothing(), .Gap = {}};
    laid.Grounds.reserve(rows.size());
    Pose pose = start;
    Predecessor before;
    for (const int row : rows) {
        const CatalogueEntry& piece = catalogue[row];
        const PiecePlacement placement = PlacePiece(piece.Kind, pose, before);
        laid.Grounds.push_back(GroundOf(placement));
        Include(laid.Box, laid.Grounds.back().Box);
        pose = placement.Exit;
        before = PredecessorOf(piece.Code, &piece);
    }
    laid.Gap = GapBetween(start, pose);
    return laid;
}

bool IsClosed(const LaidLoop& laid, double tolerance) {
    return laid.Gap.Distance <= tolerance && std::abs(laid.Gap.Angle) <= LoopAngleTolerance;
}

bool OverlapsItself(const LaidLoop& laid, const std::vector<int>& parts) {
    const std::size_t count = laid.Grounds.size();
    for (std::size_t i = 0; i + 2 < count; ++i) {
        const std::size_t last = i == 0 ? count - 2 : count - 1; // the first one's neighbour
        for (std::size_t j = i + 2; j <= last; ++j) {
            if (!laid.Grounds[i].Box.Meets(laid.Grounds[j].Box)) continue;
            if (!parts.empty() && parts[i] == parts[j]) continue;
            if (Overlaps(laid.Grounds[i], laid.Grounds[j])) return true;
        }
    }
    return false;
}

int TurnOf(const std::vector<LayingStep>& steps, const Run& run) {
    int turn = 0;
    for (const std::uint8_t step : run)
        turn += steps[step].Turn;
    return turn;
}

bool IsWholeTurn(const std::vector<LayingStep>& steps, const Run& run) {
    return std::abs(TurnOf(steps, run)) == HeadingCount;
}

bool HasAdaptersInARow(const std::vector<LayingStep>& steps, const Run& run) {
    const auto isAdapter = [&](std::uint8_t step) { return steps[step].JoinsSystems() && steps[step].Kept.empty(); };
    bool before = isAdapter(run.back());
    return std::ranges::any_of(run,
                               [&](std::uint8_t step) { return std::exchange(before, isAdapter(step)) && before; });
}

LoopRoom::LoopRoom(const RoomPolygon& room, double touch, std::vector<Ground> taken)
    : fit_(room), taken_(std::move(taken)), touch_(touch), extent_(Nothing()) {
    for (const Wall& wall : fit_.Walls()) {
        for (const GroundPoint end : {wall.From, wall.To})
            Include(extent_, {end.X, end.X, end.Y, end.Y});
    }
    extent_ = extent_.Grown(-StartStep);
    if (touch < 0) extent_ = extent_.Grown(touch - ChordStray);
}

bool LoopRoom::Holds(const LaidLoop& laid) const { return Holds(laid, {0, 0}); }

bool LoopRoom::Holds(const LaidLoop& laid, GroundPoint shift) const {
    return std::ranges::all_of(laid.Grounds, [&](const Ground& ground) { return Holds(Moved(ground, shift)); });
}

bool LoopRoom::Holds(const Ground& ground) const {
    const auto isTooNear = [&](const Wall& wall) { return IsTooNear(wall, ground); };
    return std::ranges::none_of(fit_.Walls(), isTooNear) && fit_.Holds(MiddleOf(ground)) && !IsTaken(ground);
}

bool LoopRoom::IsTaken(const Ground& ground) const {
    return !taken_.ForEachMeeting(ground.Box, [&](int, const Ground& other) { return !Overlaps(ground, other); });
}

bool LoopRoom::IsTooNear(const Wall& wall, const Ground& ground) const {
    return RunsThrough(wall, ground, std::max(touch_, 0.0)) ||
           (touch_ < 0 && WallClearance(ground, wall, -touch_).has_value());
}

std::optional<GroundPoint> LoopRoom::ShiftInto(const LaidLoop& laid, Random& random) const {
    const double spareX = Width() - (laid.Box.Right - laid.Box.Left);
    const double spareY = Height() - (laid.Box.Top - laid.Box.Bottom);
    if (spareX < 0 || spareY < 0) return std::nullopt;
    GroundPoint shift{ShiftWithin(laid.Box.Left, laid.Box.Right, extent_.Left, extent_.Right),
                      ShiftWithin(laid.Box.Bottom, laid.Box.Top, extent_.Bottom, extent_.Top)};
    constexpr int tries = 6;
    for (int tried = 0; tried < tries; ++tried) {
        if (Holds(laid, shift)) return shift;
        constexpr std::size_t places = 1024;
        const auto share = [&] { return static_cast<double>(random.Below(places)) / (places - 1); };
        shift = {extent_.Left - laid.Box.Left + spareX * share(), extent_.Bottom - laid.Box.Bottom + spareY * share()};
    }
    return std::nullopt;
}

GroundPoint LoopRoom::ShiftToMiddle(const LaidLoop& laid) const {
    const double across = (extent_.Left + extent_.Right - laid.Box.Left - laid.Box.Right) / 2;
    const double up = (extent_.Bottom + extent_.Top - laid.Box.Bottom - laid.Box.Top) / 2;
    // Two distances that are alike are worth more than a long and a short one.
    const auto worth = [&](GroundPoint shift) {
        double sum = 0;
        for (const double distance : WallDistances(laid, shift))
            sum += std::sqrt(distance);
        return sum;
    };
    GroundPoint best{0, 0};
    double most = worth(best);
    for (const double share : {1.0, 0.75, 0.5, 0.25}) {
        for (const GroundPoint shift :
             {GroundPoint{across * share, up * share}, {across * share, 0}, {0, up * share}}) {
            const double now = worth(shift);
            if (now <= most || !Holds(laid, shift)) continue;
            best = shift;
            most = now;
        }
    }
    return best;
}

double LoopRoom::DistanceToWalls(const LaidLoop& laid) const {
    const std::vector<double> distances = WallDistances(laid, {0, 0});
    return distances.empty() ? std::numeric_limits<double>::max() : std::ranges::min(distances);
}

std::vector<double> LoopRoom::WallDistances(const LaidLoop& laid, GroundPoint shift) const {
    std::vector<double> distances;
    distances.reserve(fit_.Walls().size());
    for (const Wall& wall : fit_.Walls()) {
        double nearest = std::numeric_limits<double>::max();
        for (const Ground& ground : laid.Grounds) {
            for (GroundPoint corner : ground.Corners) {
                Move(corner, shift);
                nearest = std::min(nearest, DistanceTo(wall, corner));
            }
        }
        distances.push_back(nearest);
    }
    return distances;
}

bool IsTooWide(const std::vector<LayingStep>& steps, const Loop& loop, const LoopRoom& room) {
    SearchPose pose = loop.Start;
    double left = pose.X, right = pose.X, bottom = pose.Y, top = pose.Y;
    for (const std::uint8_t step : loop.Steps) {
        pose = steps[step].After(pose);
        left = std::min(left, pose.X);
        right = std::max(right, pose.X);
        bottom = std::min(bottom, pose.Y);
        top = std::max(top, pose.Y);
    }
    return right - left > room.Width() || top - bottom > room.Height();
}

bool Settle(const Catalogue& catalogue, const std::vector<LayingStep>& steps, const LoopRoom& room,
            const std::vector<int>& parts, Random& random, Loop& loop) {
    if (HasAdaptersInARow(steps, loop.Steps)) return false;
    const LaidLoop laid = LayLoop(catalogue, RowsOf(steps, loop.Steps), loop.Cursor());
    if (!IsClosed(laid, loop.Tolerance)) return false;
    const auto shift = room.ShiftInto(laid, random);
    if (!shift || OverlapsItself(laid, parts)) return false;
    loop.Start.X += shift->X;
    loop.Start.Y += shift->Y;
    return true;
}

} // namespace pistaro

#include "editor/view_commands.h"

#include "layout/room_fit.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr float ZoomStep = 10;     ///< cm on every side
constexpr double FitMargin = 1.08; ///< of all there is, around it
constexpr double FarthestCentre = 1e6;

int WholeCm(double place) {
    return static_cast<int>(std::clamp(RoundHalfEven(place), -FarthestCentre, FarthestCentre));
}

/// Sets a bar's value; where that lies beyond its range, the range comes along.
void PutBar(ScrollBar& bar, int value) {
    const int beyond = std::min(0, value - bar.Minimum) + std::max(0, value - bar.Maximum);
    bar = {bar.Minimum + beyond, bar.Maximum + beyond, value};
}

void Include(std::optional<GroundBox>& box, const GroundBox& more) { box = box ? box->Joined(more) : more; }

/// How far a range must move to lie within another; where it is longer, its middle goes to that of the other.
double MoveInto(double from, double to, double least, double most) {
    if (to - from > most - least) return (from + to - least - most) / 2;
    return std::min(0.0, from - least) + std::max(0.0, to - most);
}

bool IsInside(const GroundBox& box, const ViewRectangle& covered) {
    return box.Left >= covered.ViewLeft && box.Right <= covered.ViewRight && box.Bottom >= covered.ViewBottom &&
           box.Top <= covered.ViewTop;
}

/// Whether elements were put in before others of a track, and no more was done to it.
bool IsInsertion(const Track& before, const Track& after) {
    const auto& old = before.ElementCodes;
    const auto& now = after.ElementCodes;
    if (now.size() <= old.size() || before.Start() != after.Start()) return false;
    const auto changed = std::ranges::mismatch(old, now).in1;
    const std::ptrdiff_t behind = old.end() - changed;
    return behind > 0 && std::equal(changed, old.end(), now.end() - behind);
}

std::optional<GroundBox> ExtentOf(const Catalogue& catalogue, const Track& track) {
    std::optional<GroundBox> box;
    WalkTrack(catalogue, track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
        if (placement != nullptr) Include(box, GroundOf(*placement).Box);
    });
    return box;
}

int ScrollStep(double width) {
    constexpr double most = 1e6; // a bar's step must stay a whole number
    return static_cast<int>(std::min(most, RoundHalfEven(std::fabs(width))));
}

/// What a notch of the wheel changes a view of that width by, cm.
double NotchStep(double width, bool finely) {
    constexpr double step = 2.0 * ZoomStep, share = 1.0 / 8, fine = 1.0 / 10;
    return std::max(1.0, std::round(width * share / step)) * step * (finely ? fine : 1);
}

} // namespace

bool CanZoomIn(const ViewSettings& view) { return view.Width > SmallestZoomableWidth; }

void ZoomIn(ViewSettings& view) { view.Width -= 2 * ZoomStep; }

void ZoomOut(ViewSettings& view) { view.Width += 2 * ZoomStep; }

void ScrollHorizontally(ViewSettings& view, int value) {
    if (value == view.HMov.Value) return;
    view.HMov.Value = value;
    view.MidX = static_cast<float>(value);
}

void ScrollVertically(ViewSettings& view, int value) {
    if (value == view.VMov.Value) return;
    view.VMov.Value = value;
    view.MidY = static_cast<float>(-value);
}

void BringIntoView(ViewSettings& view, double x, double y) {
    const ViewRectangle shown = ShownRectangle(view);
    const bool isShown = x > shown.ViewLeft && x < shown.ViewRight && y > shown.ViewBottom && y < shown.ViewTop;
    if (isShown) return;
    const auto reached = [](const ScrollBar& bar, double value) {
        return static_cast<int>(std::clamp(RoundHalfEven(value), double(bar.Minimum), double(bar.Maximum)));
    };
    ScrollHorizontally(view, reached(view.HMov, x));
    ScrollVertically(view, reached(view.VMov, -y));
}

void CentreView(ViewSettings& view, double x, double y) {
    PutBar(view.HMov, WholeCm(x));
    PutBar(view.VMov, WholeCm(y));
    view.MidX = static_cast<float>(view.HMov.Value);
    view.MidY = static_cast<float>(view.VMov.Value);
}

void ZoomAt(ViewSettings& view, WorldPoint fixed, double width) {
    const double times = width / view.Width;
    view.Width = static_cast<float>(width);
    CentreView(view, fixed.X + (view.MidX - fixed.X) * times, fixed.Y + (view.MidY - fixed.Y) * times);
}

void ZoomByNotches(ViewSettings& view, WorldPoint at, int notches, bool finely) {
    double width = view.Width;
    for (; notches > 0 && width > SmallestZoomableWidth; --notches)
        width = std::max(width - NotchStep(width, finely), double{SmallestZoomableWidth});
    for (; notches < 0; ++notches)
        width += NotchStep(width, finely);
    if (width != view.Width) ZoomAt(view, at, width);
}

std::optional<GroundBox> ExtentOf(const Catalogue& catalogue, const Design& design) {
    std::optional<GroundBox> box;
    for (const Track& track : design.Circuit.Tracks)
        if (const auto ground = ExtentOf(catalogue, track)) Include(box, *ground);
    for (const RoomPoint& point : design.Room.Points) {
        const WorldPoint corner = RoomCorner(design.Room, point);
        Include(box, {corner.X, corner.X, corner.Y, corner.Y});
    }
    return box;
}

void FitView(const Catalogue& catalogue, Design& design, const std::optional<GroundBox>& besides) {
    ViewSettings& view = design.View;
    auto box = ExtentOf(catalogue, design);
    if (besides) Include(box, *besides);
    if (!box) {
        view.Width = ViewSettings().Width;
        return CentreView(view, 0, 0);
    }
    const double extent = std::max(box->Right - box->Left, box->Top - box->Bottom);
    view.Width = static_cast<float>(std::max(double{SmallestZoomableWidth}, std::ceil(extent * FitMargin)));
    CentreView(view, (box->Left + box->Right) / 2, (box->Bottom + box->Top) / 2);
}

bool IsShown(const GroundBox& box, const ViewRectangle& covered) {
    const bool isLarge = box.Right - box.Left > double{covered.ViewRight} - covered.ViewLeft ||
                         box.Top - box.Bottom > double{covered.ViewTop} - covered.ViewBottom;
    if (!isLarge) return IsInside(box, covered);
    const double x = (box.Left + box.Right) / 2;
    const double y = (box.Bottom + box.Top) / 2;
    return IsInside({x, x, y, y}, covered);
}

void FollowTo(ViewSettings& view, const GroundBox& box, const ViewRectangle& covered) {
    const double right = MoveInto(box.Left, box.Right, covered.ViewLeft, covered.ViewRight);
    const double up = MoveInto(box.Bottom, box.Top, covered.ViewBottom, covered.ViewTop);
    // Away from the old place, so that the whole cm reach far enough.
    const auto outwards = [](double way) { return way < 0 ? std::floor(way) : std::ceil(way); };
    if (right != 0 || up != 0) CentreView(view, view.MidX + outwards(right), view.MidY + outwards(up));
}

std::optional<GroundBox> ExtentAfterInsertion(const Catalogue& catalogue, const Track& before, const Track& after,
                                              const ViewRectangle& covered) {
    if (!IsInsertion(before, after)) return std::nullopt;
    const auto box = ExtentOf(catalogue, before);
    if (!box || !IsInside(*box, covered)) return std::nullopt;
    return ExtentOf(catalogue, after);
}

int SmallScrollStep(const ViewSettings& view) { return ScrollStep(view.Width / 20.0); }

int LargeScrollStep(const ViewSettings& view) { return ScrollStep(view.Width); }

} // namespace pistaro

#include "editor/view_commands.h"

#include "text/number_text.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr float ZoomStep = 10; ///< cm on every side

int ScrollStep(double width) {
    constexpr double most = 1e6; // a bar's step must stay a whole number
    return static_cast<int>(std::min(most, RoundHalfEven(std::fabs(width))));
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

int SmallScrollStep(const ViewSettings& view) { return ScrollStep(view.Width / 20.0); }

int LargeScrollStep(const ViewSettings& view) { return ScrollStep(view.Width); }

} // namespace pistaro

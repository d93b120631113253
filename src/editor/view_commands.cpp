// Commands that change what is shown.
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

bool CanZoomIn(const Project& project) { return project.View.Width > SmallestZoomableWidth; }

void ZoomIn(Project& project) { project.View.Width -= 2 * ZoomStep; }

void ZoomOut(Project& project) { project.View.Width += 2 * ZoomStep; }

void ScrollHorizontally(Project& project, int value) {
    if (value == project.View.HMov.Value) return;
    project.View.HMov.Value = value;
    project.View.MidX = static_cast<float>(value);
}

void ScrollVertically(Project& project, int value) {
    if (value == project.View.VMov.Value) return;
    project.View.VMov.Value = value;
    project.View.MidY = static_cast<float>(-value);
}

int SmallScrollStep(const Project& project) { return ScrollStep(project.View.Width / 20.0); }

int LargeScrollStep(const Project& project) { return ScrollStep(project.View.Width); }

} // namespace pistaro

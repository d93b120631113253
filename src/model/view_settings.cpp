// The view's rectangle, its scroll bars and its label.
#include "model/view_settings.h"

#include "platform/fault.h"
#include "text/number_text.h"

#include <cmath>
#include <limits>

namespace pistaro {

namespace {

int BarNumber(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(std::fabs(rounded) <= std::numeric_limits<int>::max())) {
        throw Overflow("a scroll bar cannot stand at " + NumberText(value));
    }
    return static_cast<int>(rounded);
}

} // namespace

ViewRectangle ShownRectangle(const ViewSettings& view) {
    const double half = view.Width / 2.0;
    return {static_cast<float>(view.MidX - half), static_cast<float>(view.MidY + half),
            static_cast<float>(view.MidX + half), static_cast<float>(view.MidY - half)};
}

ScrollBar BarAround(double centre, double reach, double value) {
    return {BarNumber(centre - reach), BarNumber(centre + reach), BarNumber(value)};
}

std::string LengthLabel(double length, const Units& units) {
    return NumberText(std::floor(length * 10 / units.UnitFactor()) / 10);
}

std::string AreaLabel(double width, const Units& units) {
    const std::string side = LengthLabel(width, units);
    return "Area: " + side + " x " + side + " " + units.Name();
}

} // namespace pistaro

#include "model/view_settings.h"

#include "platform/fault.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pistaro {

namespace {

/// Within the numbers that have a negative of their own: the vertical bar's value is turned round.
int BarNumber(double value) {
    constexpr double most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(RoundHalfEven(value), -most, most));
}

} // namespace

ViewRectangle ShownRectangle(const ViewSettings& view) {
    const double half = view.Width / 2.0;
    return {static_cast<float>(view.MidX - half), static_cast<float>(view.MidY + half),
            static_cast<float>(view.MidX + half), static_cast<float>(view.MidY - half)};
}

bool IsBarPlace(double place) { return std::fabs(place) <= FarthestBarPlace; }

ScrollBar BarAround(double centre, double reach, double value) {
    for (const double place : {centre, reach, value}) {
        if (!IsBarPlace(place)) throw Overflow("a scroll bar cannot stand at " + NumberText(place));
    }
    return {BarNumber(centre - reach), BarNumber(centre + reach), BarNumber(value)};
}

ViewSettings ViewAround(double centreX, double centreY, float width, double reach) {
    return {.MidX = static_cast<float>(centreX),
            .MidY = static_cast<float>(centreY),
            .Width = width,
            .MWid = static_cast<float>(reach),
            .HMov = BarAround(centreX, reach, centreX),
            .VMov = BarAround(centreY, reach, centreY)};
}

std::string LengthLabel(double length, const Units& units) {
    // To single first: a length of 150.7 is a little less than that, and shall not be cut to 150.6.
    const auto tenths = static_cast<float>(length * 10 / units.UnitFactor());
    return NumberText(std::floor(tenths) / 10);
}

std::string AreaLabel(double width, const Units& units) {
    const std::string side = LengthLabel(width, units);
    return "Area: " + side + " x " + side + " " + units.Name();
}

} // namespace pistaro

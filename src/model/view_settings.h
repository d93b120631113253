// What of the world the drawing shows, and in which units.
#pragma once

#include <cstdint>
#include <string>

namespace pistaro {

/// A scroll bar's whole numbers, cm.
struct ScrollBar {
    int Minimum = -160;
    int Maximum = 160;
    int Value = 0;

    bool operator==(const ScrollBar&) const = default;
};

struct ViewSettings {
    float MidX = 0; ///< the centre of what is shown, cm
    float MidY = 0;
    float Width = 320; ///< of the square shown, cm: the zoom
    float MWid = 160;  ///< the largest displacement of the centre by the scroll bars, cm
    ScrollBar HMov;
    ScrollBar VMov;

    bool operator==(const ViewSettings&) const = default;
};

/// The world rectangle shown, cm, y upwards.
struct ViewRectangle {
    float ViewLeft, ViewTop, ViewRight, ViewBottom;
};

/// The square of the view's width around its centre.
ViewRectangle ShownRectangle(const ViewSettings& view);

/// How far from 0 a bar's centre, reach and value may lie, cm: the sum of two still fits its numbers.
inline constexpr double FarthestBarPlace = 1 << 30;
bool IsBarPlace(double place);

/// Sets a bar to centre - reach .. centre + reach, rounded, and to the given value. Fault beyond FarthestBarPlace.
ScrollBar BarAround(double centre, double reach, double value);

/// A view of that width whose centre the bars move by at most `reach` (cm), with the bars in their middle. The same
/// fault.
ViewSettings ViewAround(double centreX, double centreY, float width, double reach);

enum class GridType : std::int16_t { None = 0, Lines = 1, Dots = 2 };

struct GridSettings {
    std::int16_t Type = 0; ///< a GridType; other numbers draw nothing
    std::int16_t Step = 0; ///< display units

    bool operator==(const GridSettings&) const = default;
};

/// Centimetres or inches, and what money is called.
struct Units {
    bool Inches = false;
    std::string Currency;

    /// cm per display unit. The inch is the single with the bits 0x40228F4A, not the one nearest 2.54.
    float UnitFactor() const { return Inches ? 2.5399957F : 1.0F; }
    const char* Name() const { return Inches ? "in" : "cm"; }

    bool operator==(const Units&) const = default;
};

/// A length in cm as the drawing's labels show it: display units, cut to one decimal.
std::string LengthLabel(double length, const Units& units);

/// "Area: W x W cm": the label of a square of that width.
std::string AreaLabel(double width, const Units& units);

} // namespace pistaro

#include "paper/laid_size.h"

#include "text/decimal_text.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr double CmPerMetre = 100;

/// To single first: 15.5 cm of a catalogue are a little less, and shall not become 0.15 m.
double RoundedTo(double value, double step) { return std::round(static_cast<float>(value / step)) * step; }

std::string Text(double value, int decimals) {
    std::string text;
    AppendDecimal(text, value, decimals);
    return text;
}

/// "1.80"
std::string MetresText(double length) {
    const long long centimetres = std::llround(RoundedTo(length, 1));
    const std::string rest = std::to_string(centimetres % 100);
    return std::to_string(centimetres / 100) + (rest.size() < 2 ? ".0" : ".") + rest;
}

} // namespace

std::string LaidSizeText(const CircuitDrawing& drawing) {
    Box extent;
    for (const DrawnPiece& piece : drawing.Pieces)
        extent.Include(piece.Extent);
    if (extent.IsEmpty()) return {};
    const Units& units = drawing.Preferences.Units;
    const bool metres = !units.Inches && std::max(extent.Width(), extent.Height()) >= CmPerMetre;
    if (metres) return MetresText(extent.Width()) + " × " + MetresText(extent.Height()) + " m";
    const auto text = [&](double length) { return Text(RoundedTo(length / units.UnitFactor(), 0.1), 1); };
    return text(extent.Width()) + " × " + text(extent.Height()) + " " + units.Name();
}

TrackRule LongestRule(double most, const Units& units) {
    const double unit = units.UnitFactor();
    const double power = std::pow(10, std::floor(std::log10(most / unit)));
    const double times = most / unit / power;
    const double first = times >= 5 ? 5 : times >= 2 ? 2 : 1;
    TrackRule rule{first * power * unit, first == 2 ? 4 : 5, ""};
    const bool metres = !units.Inches && rule.Length >= CmPerMetre;
    rule.Text = Text(rule.Length / (metres ? CmPerMetre : unit), 3) + " " + (metres ? "m" : units.Name());
    return rule;
}

} // namespace pistaro

#include "model/colour_scheme.h"

#include <cmath>

namespace pistaro {

namespace {

/// How much light a colour gives off, 0 for black to 1 for white: the relative luminance of the contrast formula of the
/// web's accessibility guidelines.
double Luminance(Colour colour) {
    const auto linear = [](int value) {
        const double channel = value / 255.0;
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(Red(colour)) + 0.7152 * linear(Green(colour)) + 0.0722 * linear(Blue(colour));
}

} // namespace

Colour TextColourOn(Colour background) {
    constexpr double glare = 0.05; // of the screen, in the formula's ratio
    const double light = Luminance(background) + glare;
    return light / glare >= (1 + glare) / light ? Rgb(0, 0, 0) : Rgb(255, 255, 255);
}

} // namespace pistaro

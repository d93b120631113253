#include "model/length_text.h"

#include "text/fixed_text.h"

namespace pistaro {

std::string FineLength(double centimetres, const Units& units) {
    return FixedText(centimetres / units.UnitFactor(), units.Inches ? 3 : 2);
}

std::string LengthText(double centimetres, const Units& units) {
    return FixedText(centimetres / units.UnitFactor(), units.Inches ? 2 : 1) + " " + units.Name();
}

} // namespace pistaro

// Negative figures as people write them.
#pragma once

#include <string>

namespace pistaro {

/// A number's text with a true minus where files have a hyphen: "−3".
inline std::string WithMinus(std::string number) {
    if (number.starts_with('-')) number.replace(0, 1, "−");
    return number;
}

} // namespace pistaro

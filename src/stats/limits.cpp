#include "stats/limits.h"

#include "platform/fault.h"
#include "text/number_text.h"

#include <cmath>

namespace pistaro {

std::int16_t Count(int value) {
    if (const auto count = RoundedWithin<std::int16_t>(value)) return *count;
    throw Overflow("a count of pieces cannot be " + NumberText(value));
}

float Single(double value) {
    const auto single = static_cast<float>(value);
    if (!std::isfinite(single)) throw Overflow("a sum cannot be " + NumberText(value));
    return single;
}

} // namespace pistaro

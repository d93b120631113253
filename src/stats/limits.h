// What the statistics' sums may hold: counts are 16-bit whole numbers, lengths and prices singles.
#pragma once

#include <cstdint>

namespace pistaro {

/// `value` as a count. Fault outside 16 bits.
std::int16_t Count(int value);

/// `value` as a length (cm) or a price. Fault outside the singles.
float Single(double value);

} // namespace pistaro

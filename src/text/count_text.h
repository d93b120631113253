// How many of a thing there are, in words.
#pragma once

#include <concepts>
#include <string>

namespace pistaro {

/// "1 piece", "2 pieces": of things whose names take an s.
std::string CountText(std::integral auto count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

} // namespace pistaro

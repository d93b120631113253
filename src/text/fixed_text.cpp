#include "text/fixed_text.h"

#include <array>
#include <charconv>

namespace pistaro {

std::string FixedText(double value, int decimals) {
    std::array<char, 400> digits; // the largest double has 309 before its point
    char* const begin = digits.data();
    const auto written = std::to_chars(begin, begin + digits.size(), value, std::chars_format::fixed, decimals);
    std::string text(begin, written.ptr);
    if (text.starts_with('-') && text.find_first_of("123456789") == std::string::npos) text.erase(0, 1);
    return text;
}

} // namespace pistaro

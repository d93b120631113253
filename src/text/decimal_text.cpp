#include "text/decimal_text.h"

#include <array>
#include <charconv>
#include <string_view>

namespace pistaro {

void AppendDecimal(std::string& text, double value, int decimals) {
    std::array<char, 400> digits{}; // the largest double has 309 before its point
    char* const begin = digits.data();
    const char* end = std::to_chars(begin, begin + digits.size(), value, std::chars_format::fixed, decimals).ptr;
    if (decimals > 0) {
        while (end[-1] == '0')
            --end;
        if (end[-1] == '.') --end;
    }
    const std::string_view number(begin, static_cast<std::size_t>(end - begin));
    text += number == "-0" ? "0" : number;
}

} // namespace pistaro

// A character is one to four bytes; all but the first look like 10xxxxxx.
#include "text/utf8.h"

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

bool IsFurtherByte(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

} // namespace

void AppendCharacter(std::string& utf8, char32_t c) {
    const auto byte = [&](char32_t value) { utf8 += static_cast<char>(static_cast<unsigned char>(value)); };
    const auto furtherByte = [&](int shift) { byte(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        byte(c);
        return;
    }
    if (c < 0x800) {
        byte(0xC0 | (c >> 6));
    } else {
        if (c < 0x10000) {
            byte(0xE0 | (c >> 12));
        } else {
            byte(0xF0 | (c >> 18));
            furtherByte(12);
        }
        furtherByte(6);
    }
    furtherByte(0);
}

char32_t TakeCharacter(std::string_view& utf8) {
    const unsigned lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = lead < 0x80                   ? 1
                               : lead >= 0xC2 && lead < 0xE0 ? 2
                               : lead < 0xE0                 ? 0
                               : lead < 0xF0                 ? 3
                               : lead < 0xF5                 ? 4
                                                             : 0;
    char32_t c = length == 1 ? lead : length == 2 ? lead & 0x1F : length == 3 ? lead & 0x0F : lead & 0x07;
    bool whole = length > 0 && length <= utf8.size();
    for (std::size_t i = 1; whole && i < length; ++i) {
        whole = IsFurtherByte(utf8[i]);
        c = (c << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> leastOfLength{0, 0, 0x80, 0x800, 0x10000};
    whole = whole && c >= leastOfLength[length]; // else it hides a shorter character
    utf8.remove_prefix(whole ? length : 1);
    return whole ? c : BrokenCharacter;
}

std::size_t CharacterCount(std::string_view utf8) {
    return utf8.size() - static_cast<std::size_t>(std::ranges::count_if(utf8, IsFurtherByte));
}

std::string_view WithoutLastCharacters(std::string_view utf8, std::size_t count) {
    for (; count > 0 && !utf8.empty(); --count) {
        while (utf8.size() > 1 && IsFurtherByte(utf8.back()))
            utf8.remove_suffix(1);
        utf8.remove_suffix(1);
    }
    return utf8;
}

} // namespace pistaro

// The code page differs from Latin-1 in bytes 80 to 9F only.
#include "text/windows1252.h"

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

constexpr std::array<char16_t, 32> From80To9F{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                              0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t Broken = 0xFFFD;

void AppendUtf8(std::string& text, char32_t c) {
    const auto byte = [&](char32_t value) { text += static_cast<char>(static_cast<unsigned char>(value)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | (c >> 6));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xE0 | (c >> 12));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

/// The character at the front of `text`, which is removed from it; `Broken` for each byte that begins none.
char32_t TakeCharacter(std::string_view& text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byteAt(0);
    const std::size_t length = lead < 0x80                   ? 1
                               : lead >= 0xC2 && lead < 0xE0 ? 2
                               : lead < 0xE0                 ? 0
                               : lead < 0xF0                 ? 3
                               : lead < 0xF5                 ? 4
                                                             : 0;
    char32_t c = length == 1 ? lead : length == 2 ? lead & 0x1F : length == 3 ? lead & 0x0F : lead & 0x07;
    bool whole = length > 0 && length <= text.size();
    for (std::size_t i = 1; whole && i < length; ++i) {
        whole = (byteAt(i) & 0xC0) == 0x80;
        c = (c << 6) | (byteAt(i) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> leastOfLength{0, 0, 0x80, 0x800, 0x10000};
    whole = whole && c >= leastOfLength[length]; // else it hides a shorter character
    text.remove_prefix(whole ? length : 1);
    return whole ? c : Broken;
}

char ByteFor(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(static_cast<unsigned char>(c));
    const auto* const found = std::find(From80To9F.begin(), From80To9F.end(), c);
    if (found == From80To9F.end()) return '?';
    return static_cast<char>(static_cast<unsigned char>(0x80 + (found - From80To9F.begin())));
}

} // namespace

std::string Utf8FromWindows1252(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        AppendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? From80To9F[byte - 0x80U] : byte);
    }
    return utf8;
}

std::string Windows1252FromUtf8(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty())
        bytes += ByteFor(TakeCharacter(utf8));
    return bytes;
}

} // namespace pistaro

// The code page differs from Latin-1 in bytes 80 to 9F only.
#include "text/windows1252.h"

#include "text/utf8.h"

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

constexpr std::array<char16_t, 32> From80To9F{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                              0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteFor(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(static_cast<unsigned char>(c));
    const auto* const found = std::find(From80To9F.begin(), From80To9F.end(), c);
    if (found == From80To9F.end()) return '?';
    return static_cast<char>(static_cast<unsigned char>(0x80 + (found - From80To9F.begin())));
}

/// The characters at the front that are the same in both: mostly all.
std::string_view AsciiAtFront(std::string_view text) {
    const auto isOther = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
    return {text.begin(), std::ranges::find_if(text, isOther)};
}

} // namespace

std::string Utf8FromWindows1252(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) { // as nearly all are
            utf8 += c;
        } else {
            AppendCharacter(utf8, byte < 0xA0 ? From80To9F[byte - 0x80U] : byte);
        }
    }
    return utf8;
}

std::string Windows1252FromUtf8(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::string_view ascii = AsciiAtFront(utf8);
        bytes += ascii;
        utf8.remove_prefix(ascii.size());
        if (!utf8.empty()) bytes += ByteFor(TakeCharacter(utf8));
    }
    return bytes;
}

} // namespace pistaro

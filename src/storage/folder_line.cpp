#include "storage/folder_line.h"

#include "text/utf8.h"
#include "text/windows1252.h"

#include <charconv>

namespace pistaro {

namespace {

/// The byte that two hexadecimal digits after the "%" at the front of `text` stand for; below 0 where there are none.
int EscapedByte(std::string_view text) {
    constexpr std::size_t length = 3;
    int byte = -1;
    if (text.size() < length || text[0] != '%' || text[1] == '-') return -1;
    const char* const end = text.data() + length;
    return std::from_chars(text.data() + 1, end, byte, 16).ptr == end ? byte : -1;
}

std::string Escaped(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        escaped += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
    }
    return escaped;
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

} // namespace

std::string FolderLine(std::string_view folder) {
    std::string line;
    while (!folder.empty()) {
        const bool looksEscaped = EscapedByte(folder) >= 0;
        std::string_view rest = folder;
        TakeCharacter(rest);
        const std::string_view character = folder.substr(0, folder.size() - rest.size());
        folder = rest;
        const std::string inFile = Windows1252FromUtf8(character);
        const bool isHeld = Utf8FromWindows1252(inFile) == character && !IsControl(inFile[0]);
        line += isHeld && !looksEscaped ? inFile : Escaped(character);
    }
    return line;
}

std::string FolderInLine(std::string_view line) {
    std::string folder = Utf8FromWindows1252(line);
    for (std::size_t at = folder.find('%'); at != std::string::npos; at = folder.find('%', at + 1)) {
        const int byte = EscapedByte(std::string_view(folder).substr(at));
        if (byte >= 0) folder.replace(at, 3, 1, static_cast<char>(byte));
    }
    return folder;
}

} // namespace pistaro

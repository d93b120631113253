// Windows bitmaps, written and read dot by dot without the toolkit.
#pragma once

#include "model/colour_scheme.h"

#include <string>

namespace pistaro {

/// Appends a number in so many bytes, the lowest first.
inline void AppendNumber(std::string& bytes, int value, int size = 4) {
    for (; size > 0; --size, value /= 256)
        bytes += static_cast<char>(value % 256);
}

/// A Windows bitmap of one colour.
inline std::string Bitmap(int width, int height, Colour colour) {
    const int rowBytes = (width * 3 + 3) / 4 * 4;
    std::string bytes = "BM";
    for (const int value : {54 + rowBytes * height, 0, 54, 40, width, height})
        AppendNumber(bytes, value);
    AppendNumber(bytes, 1, 2);
    AppendNumber(bytes, 24, 2);
    for (const int value : {0, rowBytes * height, 0, 0, 0, 0})
        AppendNumber(bytes, value);
    std::string row;
    for (int x = 0; x < width; ++x)
        row += {static_cast<char>(Blue(colour)), static_cast<char>(Green(colour)), static_cast<char>(Red(colour))};
    row.resize(static_cast<std::size_t>(rowBytes));
    for (int y = 0; y < height; ++y)
        bytes += row;
    return bytes;
}

/// The number that stands in so many bytes from there on, the lowest first.
inline int NumberAt(const std::string& bytes, std::size_t at, int size = 4) {
    int value = 0;
    for (; size > 0; --size)
        value = value * 256 + static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(size) - 1));
    return value;
}

/// The colour of a dot of a Windows bitmap, whose rows stand upside down.
inline Colour DotOf(const std::string& bitmap, int x, int y) {
    const int dotBytes = NumberAt(bitmap, 28, 2) / 8;
    const int rowBytes = (NumberAt(bitmap, 18) * dotBytes + 3) / 4 * 4;
    const int row = NumberAt(bitmap, 22) - 1 - y;
    const auto at = static_cast<std::size_t>(NumberAt(bitmap, 10) + row * rowBytes + x * dotBytes);
    return Rgb(NumberAt(bitmap, at + 2, 1), NumberAt(bitmap, at + 1, 1), NumberAt(bitmap, at, 1));
}

} // namespace pistaro

// Images of at most 256 colours, as GIF files hold them.
#pragma once

#include <QImage>

#include <cstdint>
#include <vector>

namespace pistaro {

inline constexpr std::size_t MostPaletteColours = 256;

struct PaletteImage {
    std::vector<QRgb> Palette;
    std::vector<std::uint8_t> Pixels; ///< row by row, indices into the palette
};

/// The image with its own colours where a palette holds them all. Else the most frequent colours stay as they are, so
/// that a drawing's background and lines keep theirs, and the others become the nearest of the palette's rest.
PaletteImage ToPaletteImage(const QImage& image);

} // namespace pistaro

// The image's colours as a palette of at most 256, then giflib's encoder into memory.
#include "imaging/gif_file.h"

#include "platform/fault.h"

#include <gif_lib.h>

#include <QHash>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace pistaro {

namespace {

constexpr int MostColours = 256;

struct Indexed {
    std::vector<GifColorType> Palette;
    std::vector<GifByteType> Pixels;
};

Fault GifFault(int error) {
    const char* const reason = GifErrorString(error);
    return {"Picture not written", std::string("GIF: ") + (reason != nullptr ? reason : "unknown error")};
}

/// The image with its own colours; nothing when it has more than a palette holds.
std::optional<Indexed> WithOwnColours(const QImage& image) {
    Indexed indexed;
    QHash<QRgb, GifByteType> indices;
    indexed.Pixels.reserve(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            auto found = indices.constFind(row[x]);
            if (found == indices.constEnd()) {
                if (indices.size() == MostColours) return std::nullopt;
                found = indices.insert(row[x], static_cast<GifByteType>(indices.size()));
                indexed.Palette.push_back({static_cast<GifByteType>(qRed(row[x])),
                                           static_cast<GifByteType>(qGreen(row[x])),
                                           static_cast<GifByteType>(qBlue(row[x]))});
            }
            indexed.Pixels.push_back(*found);
        }
    }
    return indexed;
}

/// The image with the 256 colours that suit it best.
Indexed WithNearColours(const QImage& image) {
    const auto count = static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height());
    std::array<std::vector<GifByteType>, 3> planes;
    for (auto& plane : planes)
        plane.reserve(count);
    for (int y = 0; y < image.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            planes[0].push_back(static_cast<GifByteType>(qRed(row[x])));
            planes[1].push_back(static_cast<GifByteType>(qGreen(row[x])));
            planes[2].push_back(static_cast<GifByteType>(qBlue(row[x])));
        }
    }
    Indexed indexed;
    indexed.Palette.resize(MostColours);
    indexed.Pixels.resize(count);
    int colours = MostColours;
    if (GifQuantizeBuffer(static_cast<unsigned>(image.width()), static_cast<unsigned>(image.height()), &colours,
                          planes[0].data(), planes[1].data(), planes[2].data(), indexed.Pixels.data(),
                          indexed.Palette.data()) != GIF_OK) {
        throw GifFault(E_GIF_ERR_NOT_ENOUGH_MEM);
    }
    return indexed;
}

int AppendBytes(GifFileType* file, const GifByteType* bytes, int count) {
    static_cast<std::string*>(file->UserData)
        ->append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
    return count;
}

struct FreeColourMap {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};
using ColourMap = std::unique_ptr<ColorMapObject, FreeColourMap>;

/// A palette's size is a power of two.
ColourMap ToColourMap(std::vector<GifColorType> palette) {
    std::size_t size = 2;
    while (size < palette.size())
        size *= 2;
    palette.resize(size);
    return ColourMap(GifMakeMapObject(static_cast<int>(size), palette.data()));
}

} // namespace

std::string EncodeGif(const QImage& source) {
    const QImage image = source.convertToFormat(QImage::Format_RGB32);
    if (image.isNull() || image.width() > 0xFFFF || image.height() > 0xFFFF) throw GifFault(E_GIF_ERR_DATA_TOO_BIG);
    std::optional<Indexed> own = WithOwnColours(image);
    Indexed indexed = own ? std::move(*own) : WithNearColours(image);
    const ColourMap colours = ToColourMap(indexed.Palette);

    std::string bytes;
    int error = E_GIF_SUCCEEDED;
    GifFileType* const file = EGifOpen(&bytes, AppendBytes, &error);
    if (file == nullptr) throw GifFault(error);
    bool done = EGifPutScreenDesc(file, image.width(), image.height(), 8, 0, colours.get()) == GIF_OK &&
                EGifPutImageDesc(file, 0, 0, image.width(), image.height(), false, nullptr) == GIF_OK;
    for (int y = 0; done && y < image.height(); ++y) {
        done = EGifPutLine(file, indexed.Pixels.data() + static_cast<std::ptrdiff_t>(y) * image.width(),
                           image.width()) == GIF_OK;
    }
    const int drawingError = file->Error;
    if (EGifCloseFile(file, &error) != GIF_OK || !done) throw GifFault(done ? error : drawingError);
    return bytes;
}

} // namespace pistaro

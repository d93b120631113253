// giflib's encoder, into memory.
#include "imaging/gif_file.h"

#include "imaging/palette.h"
#include "platform/fault.h"

#include <gif_lib.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace pistaro {

namespace {

Fault GifFault(int error) {
    const char* const reason = GifErrorString(error);
    return {"Picture not written", std::string("GIF: ") + (reason != nullptr ? reason : "unknown error")};
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

/// A palette's size in the file is a power of two.
ColourMap ToColourMap(const std::vector<QRgb>& palette) {
    std::size_t size = 2;
    while (size < palette.size())
        size *= 2;
    std::vector<GifColorType> colours(size);
    std::ranges::transform(palette, colours.begin(), [](QRgb colour) {
        return GifColorType{static_cast<GifByteType>(qRed(colour)), static_cast<GifByteType>(qGreen(colour)),
                            static_cast<GifByteType>(qBlue(colour))};
    });
    return ColourMap(GifMakeMapObject(static_cast<int>(size), colours.data()));
}

} // namespace

std::string EncodeGif(const QImage& image) {
    if (image.isNull() || image.width() > 0xFFFF || image.height() > 0xFFFF) throw GifFault(E_GIF_ERR_DATA_TOO_BIG);
    PaletteImage indexed = ToPaletteImage(image);
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

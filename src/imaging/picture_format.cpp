#include "imaging/picture_format.h"

#include "platform/fault.h"
#include "platform/file_endings.h"

#include <array>

namespace pistaro {

namespace {

using PictureEnding = FileEnding<PictureFormat>;

constexpr std::array Endings{PictureEnding{".bmp", PictureFormat::Bmp}, PictureEnding{".png", PictureFormat::Png},
                             PictureEnding{".gif", PictureFormat::Gif}, PictureEnding{".jpg", PictureFormat::Jpeg},
                             PictureEnding{".jpeg", PictureFormat::Jpeg}};

} // namespace

const char* NameOf(PictureFormat format) { return EndingOf(Endings, format) + 1; } // without its point

std::string PictureEndings() { return EndingsText(Endings); }

PictureFormat PictureFormatOf(const std::filesystem::path& file) {
    if (const auto format = FormatIn(Endings, file)) return *format;
    throw Fault("Unknown picture format", TextFromPath(file) + ": the file's ending is none of " + PictureEndings());
}

} // namespace pistaro

#include "imaging/picture_format.h"

#include "platform/fault.h"
#include "platform/files.h"

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

struct Ending {
    const char* Text;
    PictureFormat Format;
};

constexpr std::array Endings{Ending{".bmp", PictureFormat::Bmp}, Ending{".png", PictureFormat::Png},
                             Ending{".gif", PictureFormat::Gif}, Ending{".jpg", PictureFormat::Jpeg},
                             Ending{".jpeg", PictureFormat::Jpeg}};

} // namespace

const char* NameOf(PictureFormat format) {
    return std::ranges::find(Endings, format, &Ending::Format)->Text + 1; // without its point
}

std::string PictureEndings() {
    std::string text;
    for (const Ending& ending : Endings) {
        const bool another = ending.Text != std::ranges::find(Endings, ending.Format, &Ending::Format)->Text;
        if (!another) text += (text.empty() ? "" : ", ") + std::string(ending.Text);
    }
    return text;
}

PictureFormat PictureFormatOf(const std::filesystem::path& file) {
    std::string text = TextFromPath(file.extension());
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    for (const Ending& ending : Endings) {
        if (text == ending.Text) return ending.Format;
    }
    throw Fault("Unknown picture format", TextFromPath(file) + ": the file's ending is none of " + PictureEndings());
}

} // namespace pistaro

#include "imaging/picture.h"

#include "imaging/image_file.h"
#include "platform/files.h"

namespace pistaro {

Picture Picture::Read(const std::filesystem::path& file) {
    constexpr std::size_t mostBytes = 256 << 20; // no floor plan comes near it
    return Picture(std::make_shared<const QImage>(DecodeImage(ReadFile(file, mostBytes), TextFromPath(file))));
}

} // namespace pistaro

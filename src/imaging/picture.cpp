#include "imaging/picture.h"

#include "imaging/image_file.h"
#include "model/scaled_background.h"
#include "platform/files.h"

namespace pistaro {

Picture Picture::Read(const std::filesystem::path& file) {
    return Decoded(ReadFile(file, MostPictureBytes), TextFromPath(file));
}

Picture Picture::Decoded(const std::string& bytes, const std::string& name) {
    return Picture(std::make_shared<const QImage>(DecodeImage(bytes, name)));
}

const Picture& DecodedPicture::Of(const std::shared_ptr<const std::string>& bytes, const std::string& name) {
    if (!picture_ || bytes_ != bytes) {
        picture_ = Picture::Decoded(*bytes, name);
        bytes_ = bytes;
    }
    return *picture_;
}

} // namespace pistaro

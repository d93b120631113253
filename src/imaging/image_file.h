// Pictures as files: BMP, PNG and JPEG by Qt, GIF by giflib.
#pragma once

#include "imaging/picture_format.h"

#include <QImage>

#include <string>

namespace pistaro {

/// A picture's bytes as an image. Fault when they are no picture, or one that takes more than 512 MB of
/// memory; `name` is the file's.
QImage DecodeImage(const std::string& bytes, const std::string& name);

/// An image in that format. Fault when it cannot be written so.
std::string EncodeImage(const QImage& image, PictureFormat format);

} // namespace pistaro

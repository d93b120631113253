// GIF files, which Qt reads but does not write.
#pragma once

#include <QImage>

#include <string>

namespace pistaro {

/// The image as a GIF file of at most 256 colours. Fault when it cannot be written so.
std::string EncodeGif(const QImage& image);

} // namespace pistaro

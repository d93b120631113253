// The formats of picture files.
#pragma once

#include <filesystem>
#include <string>

namespace pistaro {

enum class PictureFormat { Bmp, Png, Gif, Jpeg };

/// "bmp", "png", "gif", "jpg".
const char* NameOf(PictureFormat format);

/// ".bmp, .png, .gif, .jpg": an ending for each format.
std::string PictureEndings();

/// The format that a file's ending names: .bmp, .png, .gif, .jpg or .jpeg. Fault for any other ending.
PictureFormat PictureFormatOf(const std::filesystem::path& file);

} // namespace pistaro

// Between the 8-bit text of files (Windows-1252) and the program's own UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace pistaro {

/// The bytes of a file as UTF-8. The five bytes that the code page leaves undefined become the control characters of
/// the same number, so that they pass through unchanged.
std::string Utf8FromWindows1252(std::string_view bytes);

/// UTF-8 as bytes for a file; a character that the code page lacks, or a broken sequence, is written as "?".
std::string Windows1252FromUtf8(std::string_view utf8);

} // namespace pistaro

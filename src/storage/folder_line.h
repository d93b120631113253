// A folder as a line of the settings file, which holds any folder, though its code page has few characters.
#pragma once

#include <string>
#include <string_view>

namespace pistaro {

/// The folder's UTF-8 text as an 8-bit line. A control character, and what Windows-1252 lacks, is written as "%" and
/// two hexadecimal digits for each of its bytes; so is a "%" itself where two such digits follow it.
std::string FolderLine(std::string_view folder);

/// The folder that such a line stands for.
std::string FolderInLine(std::string_view line);

} // namespace pistaro

// What a rewrite leaves when the program is killed in the midst of it.
#pragma once

#include <filesystem>
#include <string_view>

namespace pistaro {

/// How the name of every temporary file begins and ends, which stand beside the files that they are to replace.
inline constexpr std::string_view TemporaryBeginning = ".pistaro-";
inline constexpr std::string_view TemporaryEnding = ".tmp";

/// Removes the temporary files in a folder that are older than a day: nobody writes them any more.
void SweepTemporaries(const std::filesystem::path& folder);

} // namespace pistaro

// Folders that the program makes for itself.
#pragma once

#include <filesystem>

namespace pistaro {

/// Makes a folder and those that it lies in, as far as they are not there. Fault: one of them cannot be made.
void MakeFolders(const std::filesystem::path& folder);

} // namespace pistaro

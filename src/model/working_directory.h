// Folders: parted from what lies in them, and where the program writes what it is not asked a name for: the shopping
// list, the guide, the saved drawing.
#pragma once

#include "model/preferences.h"

#include <string>

namespace pistaro {

/// A path parted after its last folder separator.
struct FolderAndTitle {
    std::string Folder; ///< with the separator; empty for a path without one
    std::string Title;
};
FolderAndTitle SplitPath(const std::string& path);

/// The path of a file of that name in the working directory. Fault when there is no working directory.
std::string InWorkingDirectory(const Preferences& preferences, const std::string& name);

} // namespace pistaro

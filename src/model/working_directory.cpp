// Without the check a file would land in whatever folder the program was started from.
#include "model/working_directory.h"

#include "platform/fault.h"
#include "platform/files.h"

#include <algorithm>

namespace pistaro {

FolderAndTitle SplitPath(const std::string& path) {
    const auto title = std::find_if(path.rbegin(), path.rend(), IsFolderSeparator).base();
    return {{path.begin(), title}, {title, path.end()}};
}

std::string InWorkingDirectory(const Preferences& preferences, const std::string& name) {
    if (preferences.WorkingDirectory.empty()) throw Fault("Path not found", "there is no working directory");
    return preferences.WorkingDirectory + name;
}

} // namespace pistaro

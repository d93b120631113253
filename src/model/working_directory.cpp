// Without the check a file would land in whatever folder the program was started from.
#include "model/working_directory.h"

#include "platform/fault.h"

namespace pistaro {

std::string InWorkingDirectory(const Preferences& preferences, const std::string& name) {
    if (preferences.WorkingDirectory.empty()) throw Fault("Path not found", "there is no working directory");
    return preferences.WorkingDirectory + name;
}

} // namespace pistaro

// Without the check a file would land in whatever folder the program was started from.
#include "model/working_directory.h"

#include "platform/fault.h"

namespace pistaro {

std::string InWorkingDirectory(const Project& project, const std::string& name) {
    if (project.WorkingDirectory.empty()) throw Fault("Path not found", "there is no working directory");
    return project.WorkingDirectory + name;
}

} // namespace pistaro

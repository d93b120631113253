#include "platform/folders.h"

#include "platform/fault.h"
#include "platform/files.h"

namespace pistaro {

void MakeFolders(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) throw Fault("Path/File access error", TextFromPath(folder) + ": " + error.message());
}

} // namespace pistaro

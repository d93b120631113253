// Temporary folders and plain file access.
#include "support/temporary_folder.h"

#include <fstream>
#include <random>
#include <sstream>

namespace pistaro {

TemporaryFolder::TemporaryFolder() {
    std::random_device random;
    do {
        path_ = std::filesystem::temp_directory_path() / ("pistaro_test_" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

std::size_t FilesIn(const std::filesystem::path& folder) {
    const std::filesystem::directory_iterator files(folder);
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

} // namespace pistaro

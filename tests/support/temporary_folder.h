// A folder of its own for each test that writes files.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace pistaro {

/// Made empty, and removed with all that is in it.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

/// A file's bytes as they are, by the standard library alone.
std::string BytesOf(const std::filesystem::path& file);
void WriteBytes(const std::filesystem::path& file, std::string_view bytes);

/// How many files and folders stand in a folder.
std::size_t FilesIn(const std::filesystem::path& folder);

} // namespace pistaro

// Paths and their text, and files read and put on disk whole. Texts are UTF-8.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace pistaro {

/// Between a path and its text in the program.
std::filesystem::path PathFromText(std::string_view utf8);
std::string TextFromPath(const std::filesystem::path& path);

/// Whether `c` parts folders in a path: "/", on Windows "\" too.
bool IsFolderSeparator(char c);

/// The separator that a folder's text ends in.
char FolderSeparator();

/// A file's bytes. Faults: not there, not readable, or larger than `atMost`.
std::string ReadFile(const std::filesystem::path& path, std::size_t atMost);

/// Bytes that are on disk, flushed, in a temporary file beside the one that they are to replace. Where it never comes
/// to that they go with this.
class WrittenFile {
public:
    /// Faults where they cannot be written, or something stands at `path` that must not be replaced.
    WrittenFile(const std::filesystem::path& path, std::string_view bytes);
    ~WrittenFile();
    WrittenFile(const WrittenFile&) = delete;
    WrittenFile& operator=(const WrittenFile&) = delete;

    /// Takes the old file's place, in one step. Faults leave the old one.
    void TakePlace();

private:
    std::filesystem::path path_;      ///< as it was named
    std::filesystem::path target_;    ///< the end of the links that lead to it
    std::filesystem::path temporary_; ///< empty when it has taken its place
};

/// Puts `bytes` on disk as the file `path`, in one step, so that a crash or a full disk leaves the old file or the new
/// one, whole. Faults leave the old one.
inline void ReplaceFile(const std::filesystem::path& path, std::string_view bytes) {
    WrittenFile(path, bytes).TakePlace();
}

} // namespace pistaro

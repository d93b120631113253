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

/// Puts `bytes` on disk as the file `path`, in one step: they go to a temporary file beside it, which is flushed and
/// renamed over it, so that a crash or a full disk leaves the old file or the new one, whole. Faults leave the old one.
void ReplaceFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace pistaro

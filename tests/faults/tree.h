// All files below a folder, to compare what stood there before with what is left.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace pistaro {

/// Everything below a folder by its path from there: a file's bytes; of other things what they are, and a folder's path
/// ends in "/".
using Tree = std::map<std::string, std::string>;
Tree TreeBelow(const std::filesystem::path& folder);

/// The names of what is not alike in both.
std::vector<std::string> Others(const Tree& one, const Tree& other);

/// Expects all that stands there to be as it was `before` or as it is `after`, and nothing to be gone.
void ExpectOldOrNew(const Tree& left, const Tree& before, const Tree& after);

} // namespace pistaro

// Where the tests find the checked-out tree and the program built from it.
#pragma once

#include <filesystem>

namespace pistaro {

/// The checked-out tree.
std::filesystem::path SourceFolder();

/// The built program, whole, for the calls that start it.
const char* Program();

} // namespace pistaro

// The file beside a circuit's that holds the picture under it: a few lines that tell where it lies, how faded it is and
// what its size was taken from, then its bytes.
#pragma once

#include "model/scaled_background.h"

#include <filesystem>
#include <string>

namespace pistaro {

/// "oval.background" beside "oval.trk"; for a circuit's file of another ending that is added to its whole name.
std::filesystem::path BackgroundFileOf(const std::filesystem::path& circuit);

/// The bytes of such a file as a value; `name` is the file's in faults. What the picture's own bytes hold is not looked
/// at.
ScaledBackground ParseBackground(const std::string& bytes, const std::string& name);

/// The same of a file. Faults: it cannot be read, or is too large.
ScaledBackground ReadBackground(const std::filesystem::path& file);

/// What is written, and read back to the same value.
std::string BackgroundBytes(const ScaledBackground& background);

} // namespace pistaro

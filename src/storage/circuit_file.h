// Circuit files (*.trk): view, room and three tracks, one value a line, recognised by its place alone.
#pragma once

#include "model/design.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace pistaro {

/// Parses a whole file. Faults name `name` and the line: a file that ends early, a number out of range, too many room
/// points, a 502nd element, or bytes that are no text.
Design ParseCircuit(std::string_view bytes, const std::string& name);

/// Reads and parses a file; the same faults and those of reading.
Design ReadCircuit(const std::filesystem::path& path);

/// The bytes of the file that holds a design.
std::string CircuitBytes(const Design& design);

} // namespace pistaro

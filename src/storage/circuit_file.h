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

/// Replaces the file by one that holds the design, and gives its bytes. Faults of writing; and what could not be read
/// again is refused with the fault that its reader would give.
std::string WriteCircuit(const std::filesystem::path& path, const Design& design);

} // namespace pistaro

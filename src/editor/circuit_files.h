// Loading and saving circuits.
#pragma once

#include "model/project.h"

#include <filesystem>

namespace pistaro {

/// Replaces the circuit, the view and the room by those of a file, whose folder becomes the working directory. Gives
/// the file's bytes. Faults of reading leave the project as it was.
std::string LoadCircuit(Project& project, const std::filesystem::path& file);

/// Writes the design to a file in one step, whose folder becomes the working directory. Gives the file's bytes. Faults
/// of writing leave file and project as they were.
std::string SaveCircuit(Project& project, const std::filesystem::path& file);

/// Whether changes not yet saved, and a track of so many elements, are there to be lost.
bool HasUnsavedTrack(const Project& project, int elements);

} // namespace pistaro

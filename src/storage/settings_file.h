// The settings file corvel.ini: sections of positional lines after their headers, read as a whole.
#pragma once

#include "model/settings.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace pistaro {

/// Parses a whole file into settings that keep what the file does not say: zero at the start of the program, the
/// values so far when it is read again. Of a section that stands twice the first counts. A warning tells where an
/// owned-track, price or colour section ends in an empty line. Faults name `name` and the line: a file that ends inside
/// a section, a value line shorter than its key, a number out of range.
Settings ParseSettings(const Catalogue& catalogue, std::string_view bytes, const std::string& name,
                       Settings settings = {});

/// Reads and parses a file; the same faults and those of reading.
Settings ReadSettings(const Catalogue& catalogue, const std::filesystem::path& path);

/// The working directory of a first run: "Pistaro" in the user's documents folder; empty for who has none.
std::string InitialWorkingDirectory();

/// The settings of a first run as the program was built with them: dots every 10 cm, nothing owned, distinct colours,
/// and no working directory, which only the user's own documents folder gives.
Settings InitialSettings(const Catalogue& catalogue);

/// The bytes of a first run's settings file: those of `brought`, the file that the installation brings, or the built-in
/// ones where it brings none; with this working directory. Faults: those of reading and parsing.
std::string InitialSettingsBytes(const Catalogue& catalogue, const std::filesystem::path& brought,
                                 const std::string& workingDirectory);

/// The same of the program's own installation and user.
std::string InitialSettingsBytes(const Catalogue& catalogue);

} // namespace pistaro

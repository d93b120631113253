// What the designer starts with: the settings, put in place on a first run.
#pragma once

#include "model/project.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace pistaro {

/// What the designer's window is to be opened with.
struct DesignerOptions {
    std::optional<std::filesystem::path> Circuit;
    std::optional<std::filesystem::path> SettingsFile; ///< in place of the usual settings file
    bool NoSplash = false;                             ///< without the opening window
};

struct DesignerStart {
    pistaro::Project Project;
    std::filesystem::path SettingsPath; ///< empty: there is no settings file to write
    std::vector<Message> Messages;      ///< to be told before the user begins
};

/// Copies the sample circuits, and the manual beside them, into a first run's working directory, where the load dialog
/// and the Manual command look for them. Files that are there already stay. Faults: a folder cannot be made, a file not
/// be read or written.
void CopySamples(const std::filesystem::path& from, const std::filesystem::path& to);

/// The sample circuits in a folder, by their names.
std::vector<std::filesystem::path> SamplesIn(const std::filesystem::path& folder);

/// Where the samples stand as they came: where Pistaro is installed, else in the checkout that the program was built
/// in. Empty where neither has them.
std::filesystem::path SampleFolder();

/// Reads the settings file; where none stands an initial one is put there first, with its folder, the working directory
/// and the samples in it. A file that cannot be read or made is told: the program then goes on with the initial
/// settings and leaves the file alone, as where there is no home for one. Samples that cannot be put in place are told,
/// too. Sweeps what killed programs left half-written.
DesignerStart StartDesigner(const Catalogue& catalogue, const std::filesystem::path& settingsPath);

} // namespace pistaro

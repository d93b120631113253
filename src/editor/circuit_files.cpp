#include "editor/circuit_files.h"

#include "model/working_directory.h"
#include "platform/files.h"
#include "storage/circuit_file.h"
#include "storage/line_reader.h"

#include <algorithm>

namespace pistaro {

namespace {

/// Takes the file for the project's own, and its folder for the working directory.
void Adopt(Project& project, const std::filesystem::path& file) {
    project.EditState.File = std::filesystem::absolute(file).lexically_normal();
    project.EditState.Name.clear();
    const std::string folder = SplitPath(TextFromPath(project.EditState.File)).Folder;
    if (!folder.empty()) project.Preferences.WorkingDirectory = folder;
}

} // namespace

std::string LoadCircuit(Project& project, const std::filesystem::path& file) {
    std::string bytes = ReadFile(file, MostFileBytes);
    Design design = ParseCircuit(bytes, TextFromPath(file));
    NewProject(project);
    project.Design = std::move(design);
    Adopt(project, file);
    return bytes;
}

std::string SaveCircuit(Project& project, const std::filesystem::path& file) {
    std::string bytes = WriteCircuit(file, project.Design);
    project.EditState.DataChanged = false;
    Adopt(project, file);
    return bytes;
}

bool HasUnsavedTrack(const Project& project, int elements) {
    return project.EditState.DataChanged && std::ranges::any_of(project.Design.Circuit.Tracks, [&](const Track& track) {
               return track.ElementLastIndex() >= elements - 1;
           });
}

} // namespace pistaro

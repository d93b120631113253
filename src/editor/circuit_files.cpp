#include "editor/circuit_files.h"

#include "model/working_directory.h"
#include "platform/files.h"
#include "storage/circuit_file.h"

#include <algorithm>

namespace pistaro {

namespace {

/// Takes the file for the project's own, and its folder for the working directory.
void Adopt(Project& project, const std::filesystem::path& file) {
    project.EditState.File = std::filesystem::absolute(file).lexically_normal();
    project.EditState.Name.clear();
    const std::string folder = PartedPath(TextFromPath(project.EditState.File)).Folder;
    if (!folder.empty()) project.Preferences.WorkingDirectory = folder;
}

} // namespace

void LoadCircuit(Project& project, const std::filesystem::path& file) {
    Design design = ReadCircuit(file);
    NewProject(project);
    project.Design = std::move(design);
    Adopt(project, file);
}

void SaveCircuit(Project& project, const std::filesystem::path& file) {
    ReplaceFile(file, CircuitBytes(project.Design));
    project.EditState.DataChanged = false;
    Adopt(project, file);
}

bool HasUnsavedTrack(const Project& project, int elements) {
    return project.EditState.DataChanged && std::ranges::any_of(project.Design.Circuit.Tracks, [&](const Track& track) {
               return track.ElementLastIndex() >= elements - 1;
           });
}

} // namespace pistaro

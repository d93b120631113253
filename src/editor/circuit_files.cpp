#include "editor/circuit_files.h"

#include "platform/files.h"
#include "storage/circuit_file.h"

#include <algorithm>

namespace pistaro {

namespace {

/// Takes the file for the project's own, and its folder for the working directory.
void Adopt(Project& project, const std::filesystem::path& file) {
    project.EditState.File = std::filesystem::absolute(file).lexically_normal();
    project.EditState.Name.clear();
    if (const auto parted = PartedPath(TextFromPath(project.EditState.File)))
        project.Preferences.WorkingDirectory = parted->Folder;
}

} // namespace

std::optional<FolderAndTitle> PartedPath(const std::string& path) {
    const auto separator = std::find_if(path.rbegin(), path.rend(), IsFolderSeparator);
    if (separator == path.rend()) return std::nullopt;
    return FolderAndTitle{{path.begin(), separator.base()}, {separator.base(), path.end()}};
}

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

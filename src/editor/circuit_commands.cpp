// The circuit menu's commands.
#include "editor/circuit_commands.h"

#include "platform/files.h"
#include "storage/circuit_file.h"
#include "storage/settings_sections.h"
#include "text/utf8.h"

#include <algorithm>

namespace pistaro {

namespace {

constexpr const char* TrackFilter = "Track files (*.trk)|*.trk";

bool AnyTrackHas(const Project& project, int elements) {
    return std::ranges::any_of(project.Layout.Tracks,
                               [&](const Track& track) { return track.ElementLastIndex() >= elements - 1; });
}

/// Load and New ask about tracks of two elements or more, Quit about a single one, too.
bool WouldLoseTrack(const Project& project) { return project.DataChanged && AnyTrackHas(project, 2); }
bool WouldLoseAnything(const Project& project) { return project.DataChanged && AnyTrackHas(project, 1); }

void RememberFolder(Project& project, const std::string& folder) {
    project.WorkingDirectory = folder;
    if (!project.SettingsPath.empty()) RewriteSettings(project.SettingsPath, {WorkingDirectoryOf(folder)});
}

FolderAndTitle PartedFile(const Project& project, const std::filesystem::path& file) {
    const std::string path = TextFromPath(std::filesystem::absolute(file).lexically_normal());
    return PartedPath(path).value_or(FolderAndTitle{project.WorkingDirectory, path});
}

/// Whether the user lets go of the unsaved work that a load replaces.
bool MayReplace(const Project& project, Prompts& prompts) {
    return !WouldLoseTrack(project) ||
           prompts.Ask("All data will be lost if you proceed.", Buttons::OkCancel) == Answer::Ok;
}

} // namespace

std::optional<FolderAndTitle> PartedPath(const std::string& path) {
    const auto separator = std::find_if(path.rbegin(), path.rend(), IsFolderSeparator);
    if (separator == path.rend()) return std::nullopt;
    return FolderAndTitle{{path.begin(), separator.base()}, {separator.base(), path.end()}};
}

std::string NameFromTitle(const std::string& title) { return std::string(WithoutLastCharacters(title, 4)); }

void LoadCircuit(Project& project, const std::filesystem::path& file) {
    CircuitFile read = ReadCircuit(file);
    const FolderAndTitle parted = PartedFile(project, file);
    NewProject(project);
    project.View = read.View;
    project.Room = std::move(read.Room);
    project.Layout.Tracks = std::move(read.Tracks);
    project.Name = NameFromTitle(parted.Title);
    RememberFolder(project, parted.Folder);
}

void SaveCircuit(Project& project, const std::filesystem::path& file) {
    const FolderAndTitle parted = PartedFile(project, file);
    ReplaceFile(file, CircuitBytes(project));
    project.Name = NameFromTitle(parted.Title);
    project.DataChanged = false;
    RememberFolder(project, parted.Folder);
}

void LoadFileCommand(Project& project, Prompts& prompts, const std::filesystem::path& file) {
    if (MayReplace(project, prompts)) LoadCircuit(project, file);
}

void LoadCommand(Project& project, Prompts& prompts) {
    const bool replacesWork = WouldLoseTrack(project);
    if (!MayReplace(project, prompts)) return;
    const auto file = prompts.ChooseFile({.Saving = false,
                                          .Title = "Load Circuit",
                                          .Filter = TrackFilter,
                                          .DefaultName = "",
                                          .Folder = project.WorkingDirectory});
    if (file) {
        LoadCircuit(project, *file);
        return;
    }
    if (replacesWork) NewProject(project);
    project.DataChanged = false;
}

void SaveCommand(Project& project, Prompts& prompts) {
    const auto file = prompts.ChooseFile({.Saving = true,
                                          .Title = "Save Circuit",
                                          .Filter = TrackFilter,
                                          .DefaultName = project.Name == NewProjectName ? "" : project.Name,
                                          .Folder = project.WorkingDirectory});
    if (!file) {
        project.DataChanged = false;
        return;
    }
    std::error_code reportedByTheWrite;
    if (std::filesystem::exists(*file, reportedByTheWrite)) {
        prompts.Ask("A file with that name already exists. Overwrite?", Buttons::YesNo);
    }
    SaveCircuit(project, *file);
}

void NewCommand(Project& project, Prompts& prompts) {
    const bool keep = WouldLoseTrack(project) &&
                      prompts.Ask("Send data on its way to binary oblivion?", Buttons::OkCancel) == Answer::Cancel;
    if (!keep) NewProject(project);
}

void QuitCommand(Project& project, Prompts& prompts) {
    if (!WouldLoseAnything(project)) return;
    if (prompts.Ask("Discard unsaved data?", Buttons::YesNo) == Answer::No) SaveCommand(project, prompts);
}

} // namespace pistaro

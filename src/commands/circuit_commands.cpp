#include "commands/circuit_commands.h"

#include "editor/circuit_files.h"
#include "storage/settings_sections.h"

namespace pistaro {

namespace {

/// Load and New ask about tracks of two elements or more, Quit about a single one, too.
bool WouldLoseTrack(const Session& session) { return HasUnsavedTrack(session.Project, 2); }
bool WouldLoseAnything(const Session& session) { return HasUnsavedTrack(session.Project, 1); }

/// Keeps the folder of a file that was loaded or saved for the next start.
void RememberFolder(const Session& session) {
    if (session.SettingsPath.empty()) return;
    RewriteSettings(session.Catalogue, session.SettingsPath,
                    {WorkingDirectoryOf(session.Project.Preferences.WorkingDirectory)});
}

void Load(Session& session, const std::filesystem::path& file) {
    session.TellLeaving();
    LoadCircuit(session.Project, file);
    session.BeginCircuit("Load " + ProjectName(session.Project.EditState));
    RememberFolder(session);
}

void Empty(Session& session) {
    session.TellLeaving();
    NewProject(session.Project);
    session.BeginCircuit("New");
}

/// Asks whether unsaved work may go.
bool LetsGo(Session& session, const char* question, Buttons buttons, Answer yes) {
    if (session.Prompts.Ask(question, buttons) != yes) return false;
    session.NoteDiscarded();
    return true;
}

} // namespace

bool MayReplace(Session& session) {
    return !WouldLoseTrack(session) ||
           LetsGo(session, "All data will be lost if you proceed.", Buttons::OkCancel, Answer::Ok);
}

void LoadFileCommand(Session& session, const std::filesystem::path& file) {
    if (MayReplace(session)) Load(session, file);
}

void LoadCommand(Session& session) {
    const bool replacesWork = WouldLoseTrack(session);
    if (!MayReplace(session)) return;
    const auto file = session.Prompts.ChooseFile({.Saving = false,
                                                  .Title = "Load Circuit",
                                                  .Filter = TrackFilter,
                                                  .DefaultName = "",
                                                  .Folder = session.Project.Preferences.WorkingDirectory});
    if (file) return Load(session, *file);
    if (replacesWork) Empty(session);
    session.Project.EditState.DataChanged = false;
}

void SaveCommand(Session& session) {
    const std::string name = ProjectName(session.Project.EditState);
    const auto file = session.Prompts.ChooseFile({.Saving = true,
                                                  .Title = "Save Circuit",
                                                  .Filter = TrackFilter,
                                                  .DefaultName = name == NewProjectName ? "" : name,
                                                  .Folder = session.Project.Preferences.WorkingDirectory});
    if (!file) {
        session.Project.EditState.DataChanged = false;
        return;
    }
    std::error_code reportedByTheWrite;
    if (std::filesystem::exists(*file, reportedByTheWrite)) {
        session.Prompts.Ask("A file with that name already exists. Overwrite?", Buttons::YesNo);
    }
    SaveCircuit(session.Project, *file);
    session.NoteSaved();
    RememberFolder(session);
}

void NewCommand(Session& session) {
    const bool lose = !WouldLoseTrack(session) ||
                      LetsGo(session, "Send data on its way to binary oblivion?", Buttons::OkCancel, Answer::Ok);
    if (lose) Empty(session);
}

void QuitCommand(Session& session) {
    session.TellLeaving();
    if (WouldLoseAnything(session) && !LetsGo(session, "Discard unsaved data?", Buttons::YesNo, Answer::Yes))
        SaveCommand(session);
}

} // namespace pistaro

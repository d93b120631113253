#include "commands/circuit_commands.h"

#include "commands/background_commands.h"
#include "editor/building.h"
#include "editor/circuit_files.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "storage/circuit_file.h"
#include "storage/settings_sections.h"

namespace pistaro {

namespace {

/// Load and New ask about tracks of two elements or more, Quit about a single one, too.
bool WouldLoseTrack(const Session& session) { return HasUnsavedTrack(session.Project, 2); }
bool WouldLoseAnything(const Session& session) { return HasUnsavedTrack(session.Project, 1); }

/// Has the palette show the pieces that the circuit is made of. A script says itself which it builds with.
void OfferItsSystem(Session& session) {
    if (session.Windows == nullptr) return;
    OfferOnlySystem(session.Catalogue, session.Project.Design.Circuit, session.Project.EditState);
}

/// Keeps the folder of a file that was loaded or saved for the next start.
void RememberFolder(const Session& session) {
    if (session.SettingsPath.empty()) return;
    RewriteSettings(session.Catalogue, session.SettingsPath,
                    {WorkingDirectoryOf(session.Project.Preferences.WorkingDirectory)});
}

void Load(Session& session, const std::filesystem::path& file) {
    session.NotifyLeaving();
    session.NoteLoaded(LoadCircuit(session.Project, file));
    OfferItsSystem(session);
    LoadBackground(session);
    RememberFolder(session);
}

/// The circuit and, beside it, the picture under it.
void SaveDesign(Session& session, const std::filesystem::path& file) {
    BackgroundToSave background(session, file);
    session.NoteSaved(SaveCircuit(session.Project, file));
    background.TakePlace();
}

void Save(Session& session, const std::filesystem::path& file) {
    SaveDesign(session, file);
    RememberFolder(session);
}

/// "oval.trk was changed by another program."
std::string ChangedText(const std::filesystem::path& file) {
    return TextFromPath(file.filename()) + " was changed by another program.";
}

void Empty(Session& session) {
    session.NotifyLeaving();
    NewProject(session.Project);
    session.BeginCircuit("New");
}

/// Asks whether unsaved work may go.
bool LetsGo(Session& session, const char* question, Buttons buttons, Answer yes) {
    if (session.Prompts.Ask(question, buttons) != yes) return false;
    session.NoteDiscarded();
    return true;
}

/// A name for a circuit that has none, which no file in the working directory bears: the dialog's answer to a file that
/// exists is not asked for.
std::string NewName(const Session& session) {
    const std::filesystem::path folder = PathFromText(session.Project.Preferences.WorkingDirectory);
    std::error_code unknown;
    std::string name = "Circuit";
    for (int next = 2; std::filesystem::exists(folder / (name + ".trk"), unknown); ++next)
        name = "Circuit " + std::to_string(next);
    return name;
}

/// Writes the circuit to the file that its user names. One who names none lets the work pass for saved.
void SaveAs(Session& session, const std::string& proposedName) {
    const auto file = session.Prompts.ChooseFile({.Saving = true,
                                                  .Title = "Save Circuit",
                                                  .Filter = TrackFilter,
                                                  .DefaultName = proposedName,
                                                  .Folder = session.Project.Preferences.WorkingDirectory});
    if (!file) {
        session.Project.EditState.DataChanged = false;
        return;
    }
    CheckNotSettings(*file, session.SettingsPath);
    std::error_code reportedByTheWrite;
    if (std::filesystem::exists(*file, reportedByTheWrite)) {
        session.Prompts.Ask("A file with that name already exists. Overwrite?", Buttons::YesNo);
    }
    Save(session, *file);
}

/// Lets the job go that runs, if one does and the user agrees; Stopped when they do not.
void LeaveJob(Session& session) {
    const Job* const job = session.CurrentJob();
    if (job == nullptr) return;
    const std::string question = job->IsUnderWay + " It will be lost if you proceed.";
    if (session.Prompts.Ask(question, Buttons::OkCancel) == Answer::Cancel) throw Stopped();
    session.CancelJob();
}

} // namespace

void CheckNotSettings(const std::filesystem::path& file, const std::filesystem::path& settings) {
    if (settings.empty()) return;
    std::error_code unknown;
    const bool same = std::filesystem::equivalent(file, settings, unknown) ||
                      std::filesystem::weakly_canonical(std::filesystem::absolute(file), unknown) ==
                          std::filesystem::weakly_canonical(std::filesystem::absolute(settings), unknown);
    if (same) throw Fault("Permission denied", TextFromPath(file) + ": is the settings file");
}

bool MayReplace(Session& session) {
    return !WouldLoseTrack(session) ||
           LetsGo(session, "All data will be lost if you proceed.", Buttons::OkCancel, Answer::Ok);
}

void LoadFileCommand(Session& session, const std::filesystem::path& file) {
    if (MayReplace(session)) Load(session, file);
}

bool LoadSampleCommand(Session& session, const std::filesystem::path& sample) {
    Design design = ReadCircuit(sample);
    if (!MayReplace(session)) return false;
    session.NotifyLeaving();
    NewProject(session.Project);
    session.Project.Design = std::move(design);
    session.Project.EditState.Name = TextFromPath(sample.stem());
    session.BeginCircuit("Load " + ProjectName(session.Project.EditState));
    OfferItsSystem(session);
    return true;
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
    const EditState& edit = session.Project.EditState;
    SaveAs(session, edit.File.empty() ? edit.Name : ProjectName(edit));
}

void PlainSaveCommand(Session& session) {
    const std::filesystem::path file = session.Project.EditState.File;
    if (file.empty()) {
        const bool unsaved = session.Project.EditState.DataChanged;
        const std::string& name = session.Project.EditState.Name;
        SaveAs(session, name.empty() ? NewName(session) : name);
        // The dialog that is left without a name lets the work pass for saved; this command does not.
        if (session.Project.EditState.File.empty()) session.Project.EditState.DataChanged = unsaved;
        return;
    }
    if (session.Files.IsChanged(file) &&
        session.Prompts.Ask(ChangedText(file) + " Overwrite it?", Buttons::YesNo) != Answer::Yes)
        return;
    const std::string folder = session.Project.Preferences.WorkingDirectory;
    SaveDesign(session, file);
    if (session.Project.Preferences.WorkingDirectory != folder) RememberFolder(session);
}

void OfferChangedFile(Session& session) {
    const std::filesystem::path file = session.Project.EditState.File;
    if (!session.Files.IsNewlyChanged(file)) return;
    const bool unsaved = session.Project.EditState.DataChanged;
    const std::string question =
        ChangedText(file) + " Load it?" + (unsaved ? " Your unsaved changes make way; Undo brings them back." : "");
    if (session.Prompts.Ask(question, Buttons::YesNo) != Answer::Yes) return;
    if (unsaved) session.NoteDiscarded();
    Load(session, file);
}

void NewCommand(Session& session) {
    const bool lose = !WouldLoseTrack(session) ||
                      LetsGo(session, "Send data on its way to binary oblivion?", Buttons::OkCancel, Answer::Ok);
    if (lose) Empty(session);
}

void QuitCommand(Session& session) {
    LeaveJob(session);
    session.NotifyLeaving();
    if (WouldLoseAnything(session) && !LetsGo(session, "Discard unsaved data?", Buttons::YesNo, Answer::Yes))
        SaveCommand(session);
}

} // namespace pistaro

#include "commands/recovery_commands.h"

#include "commands/background_commands.h"
#include "commands/circuit_commands.h"
#include "commands/recovery.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "storage/circuit_file.h"
#include "storage/line_reader.h"

namespace pistaro {

bool OpenRecovered(Session& session, const RecoveredWork& work) {
    Design design = ReadCircuit(work.File);
    if (!MayReplace(session)) return false;
    session.NotifyLeaving();
    auto background = BackgroundBeside(session, work.File); // before the work changes its place
    if (session.Recovery != nullptr) session.Recovery->Adopt(work);
    NewProject(session.Project);
    session.Project.Design = std::move(design);
    session.Project.Background = std::move(background);
    session.Project.EditState.Name = work.Name.Design;
    session.Project.EditState.DataChanged = true;
    session.BeginCircuit("Recover " + ProjectName(session.Project.EditState));
    return true;
}

bool CopyRecovered(Session& session, const RecoveredWork& work) {
    const std::string bytes = ReadFile(work.File, MostFileBytes);
    const auto file = session.Prompts.ChooseFile({.Saving = true,
                                                  .Title = "Copy Recovered Work",
                                                  .Filter = TrackFilter,
                                                  .DefaultName = work.Name.Design,
                                                  .Folder = session.Project.Preferences.WorkingDirectory});
    if (!file) return false;
    std::error_code reportedByTheWrite;
    if (std::filesystem::exists(*file, reportedByTheWrite) &&
        session.Prompts.Ask("A file with that name already exists. Overwrite?", Buttons::YesNo) != Answer::Yes) {
        return false;
    }
    CopyBackground(work.File, *file);
    ReplaceFile(*file, bytes);
    return true;
}

bool DeleteRecovered(Session& session, const RecoveredWork& work) {
    if (session.Prompts.Ask("Delete \"" + work.Name.Design + "\" for good?", Buttons::YesNo) != Answer::Yes)
        return false;
    if (!RemoveRecoveredWork(work.File)) throw Fault("File not found", TextFromPath(work.File));
    return true;
}

} // namespace pistaro

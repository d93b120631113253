#include "commands/export_commands.h"

#include "platform/files.h"

namespace pistaro {

namespace {

bool MayReplace(const Session& session, const std::filesystem::path& file) {
    std::error_code toldByTheWrite;
    if (!std::filesystem::exists(file, toldByTheWrite)) return true;
    return session.Prompts.Ask(TextFromPath(file.filename()) + " is there already. Replace it?", Buttons::YesNo) ==
           Answer::Yes;
}

} // namespace

const char* CaptionOf(ExportFormat format) {
    switch (format) {
    case ExportFormat::Png:
        return "Picture (PNG)";
    case ExportFormat::Svg:
        return "Drawing (SVG)";
    case ExportFormat::Pdf:
        return "Paper (PDF)";
    case ExportFormat::Dxf:
        return "Construction (DXF)";
    case ExportFormat::Csv:
        return "Table of pieces (CSV)";
    case ExportFormat::Json:
        break;
    }
    return "Layout (JSON)";
}

std::string FileTitleOf(const Session& session) {
    const std::string name = ProjectName(session.Project.EditState);
    return name == NewProjectName ? "circuit" : name;
}

std::string ExportFolderOf(const Session& session) {
    const std::string& last = session.Habits.ExportFolder;
    std::error_code gone;
    return std::filesystem::is_directory(PathFromText(last), gone) ? last
                                                                   : session.Project.Preferences.WorkingDirectory;
}

std::optional<std::filesystem::path> ChooseFileToWrite(Session& session, const FileChoice& choice) {
    auto file = session.Prompts.ChooseFile(choice);
    if (file && !MayReplace(session, *file)) file.reset();
    return file;
}

bool ExportToChosenFile(Session& session, ExportFormat format, const std::function<std::string()>& bytes) {
    const std::string ending = EndingOf(format);
    const auto file = ChooseFileToWrite(session, {.Saving = true,
                                                  .Title = "Export",
                                                  .Filter = std::string(CaptionOf(format)) + "|*" + ending,
                                                  .DefaultName = FileTitleOf(session) + ending,
                                                  .Folder = ExportFolderOf(session)});
    if (!file) return false;
    ReplaceFile(*file, bytes());
    session.Habits.ExportFolder = TextFromPath(std::filesystem::absolute(*file).parent_path());
    session.Prompts.TellWritten(*file, "");
    return true;
}

bool ExportCommand(Session& session, ExportFormat format, const ExportOptions& options) {
    if (!ExportToChosenFile(session, format,
                            [&] { return ExportBytes(session.Catalogue, session.Project, format, options); }))
        return false;
    session.Habits.ExportEnding = EndingOf(format);
    return true;
}

} // namespace pistaro

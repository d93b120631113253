#include "commands/export_commands.h"

#include "platform/fault.h"
#include "platform/files.h"

#include <algorithm>

namespace pistaro {

namespace {

struct FormatWords {
    ExportFormat Format;
    const char* Caption;
    const char* Purpose;
    const char* Opened; ///< by which programs
};

constexpr FormatWords Words[] = {
    {ExportFormat::Png, "Picture (PNG)", "For forums, mail and messengers",
     "Any picture viewer opens it; forums and messengers show it."},
    {ExportFormat::Svg, "Drawing (SVG)", "For web pages and drawing: sharp at any size",
     "A web browser shows it; a drawing program such as Inkscape changes it."},
    {ExportFormat::Pdf, "Paper (PDF)", "For printing, also at full size in tiles",
     "Any PDF reader or web browser opens and prints it, to scale at 100 %."},
    {ExportFormat::Dxf, "Construction (DXF)", "For a joiner's or a cutter's program, at full size",
     "A CAD program such as LibreCAD opens it; its unit is the centimetre."},
    {ExportFormat::Csv, "Table of pieces (CSV)", "For a spreadsheet: each piece and its place",
     "A spreadsheet such as LibreOffice Calc opens it; fields are parted by commas."},
    {ExportFormat::Json, "Layout (JSON)", "For scripts: each piece, its corners and joints",
     "Programs and scripts read it; a text editor or a web browser shows it."}};

const FormatWords& WordsOf(ExportFormat format) { return *std::ranges::find(Words, format, &FormatWords::Format); }

bool MayReplace(const Session& session, const std::filesystem::path& file) {
    std::error_code toldByTheWrite;
    if (!std::filesystem::exists(file, toldByTheWrite)) return true;
    return session.Prompts.Ask(TextFromPath(file.filename()) + " is there already. Replace it?", Buttons::YesNo) ==
           Answer::Yes;
}

} // namespace

const char* CaptionOf(ExportFormat format) { return WordsOf(format).Caption; }

const char* PurposeOf(ExportFormat format) { return WordsOf(format).Purpose; }

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

std::optional<ExportFile> ChooseExportFile(Session& session, ExportFormat proposed) {
    const std::string ending = EndingOf(proposed);
    const auto file = ChooseFileToWrite(session, {.Saving = true,
                                                  .Title = "Export",
                                                  .Filter = std::string(CaptionOf(proposed)) + "|*" + ending,
                                                  .DefaultName = FileTitleOf(session) + ending,
                                                  .Folder = ExportFolderOf(session),
                                                  .OtherEndings = EndingsBut(proposed)});
    if (!file) return std::nullopt;
    return ExportFile{*file, ExportFormatOf(*file).value_or(proposed)};
}

void WriteExport(Session& session, const ExportFile& file, const std::string& bytes) {
    ReplaceFile(file.Path, bytes);
    session.Habits.ExportFolder = TextFromPath(std::filesystem::absolute(file.Path).parent_path());
    session.Prompts.TellWritten(file.Path, WordsOf(file.Format).Opened);
}

bool ExportSheets(Session& session, const std::function<std::string()>& pdf) {
    const auto file = ChooseExportFile(session, ExportFormat::Pdf);
    if (!file) return false;
    if (file->Format != ExportFormat::Pdf)
        throw Fault("Nothing was written", TextFromPath(file->Path.filename()) +
                                               ": sheets are written as .pdf; other formats are in Circuit ▸ Export");
    WriteExport(session, *file, pdf());
    return true;
}

} // namespace pistaro

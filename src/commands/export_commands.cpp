#include "commands/export_commands.h"

#include "platform/fault.h"
#include "platform/file_endings.h"

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
    {ExportFormat::ShoppingList, "Shopping list (CSV)", "For a spreadsheet: what to buy, and prices",
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

/// ".png, .svg or .pdf".
std::string OneOf(const std::vector<std::string>& endings) {
    std::string text;
    for (const std::string& ending : endings)
        text += (text.empty() ? "" : &ending == &endings.back() ? " or " : ", ") + ending;
    return text;
}

/// The file with the first of these endings in place of its own, where its user agrees; nothing where he does not.
std::optional<std::filesystem::path> WithWrittenEnding(const Session& session, std::filesystem::path file,
                                                       const std::vector<std::string>& endings) {
    const std::string typed = TextFromPath(file.filename());
    file.replace_extension(endings.front());
    const std::string question = typed + " cannot be written: files here end in " + OneOf(endings) + ". Write " +
                                 TextFromPath(file.filename()) + " instead?";
    if (session.Prompts.AskWhether(question, "&Write " + endings.front()) != Answer::Ok) return std::nullopt;
    return file;
}

FileChoice ExportChoice(const Session& session, ExportFormat format) {
    const std::string ending = EndingOf(format);
    const std::string name = FileTitleOf(session) + (format == ExportFormat::ShoppingList ? "-shopping" : "") + ending;
    return {.Saving = true,
            .Title = "Export",
            .Filter = std::string(CaptionOf(format)) + "|*" + ending,
            .DefaultName = name,
            .Folder = ExportFolderOf(session),
            .KeepsEnding = true};
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

std::optional<std::filesystem::path> AskForFile(const Session& session, FileChoice choice,
                                                const std::vector<std::string>& endings) {
    while (const auto typed = session.Prompts.ChooseFile(choice)) {
        std::optional<std::filesystem::path> file = typed;
        if (std::ranges::find(endings, EndingIn(*typed)) == endings.end())
            file = WithWrittenEnding(session, *typed, endings);
        if (file && MayReplace(session, *file)) return file;
        choice.DefaultName = TextFromPath(file.value_or(*typed).filename());
        choice.Folder = TextFromPath(typed->parent_path());
    }
    return std::nullopt;
}

std::optional<ExportFile> ChooseExportFile(Session& session, ExportFormat proposed) {
    const auto file = AskForFile(session, ExportChoice(session, proposed), EndingsFrom(proposed));
    if (!file) return std::nullopt;
    const bool asProposed = EndingIn(*file) == EndingOf(proposed);
    return ExportFile{*file, asProposed ? proposed : *ExportFormatOf(*file)};
}

void WriteExport(Session& session, const ExportFile& file, const std::string& bytes) {
    ReplaceFile(file.Path, bytes);
    session.Habits.ExportFolder = TextFromPath(std::filesystem::absolute(file.Path).parent_path());
    session.Prompts.TellWritten(file.Path, WordsOf(file.Format).Opened);
}

bool ExportSheets(Session& session, const std::function<std::string()>& pdf) {
    FileChoice choice = ExportChoice(session, ExportFormat::Pdf);
    choice.Title = "Save as PDF";
    const auto file = AskForFile(session, std::move(choice), {EndingOf(ExportFormat::Pdf)});
    if (!file) return false;
    WriteExport(session, {*file, ExportFormat::Pdf}, pdf());
    return true;
}

} // namespace pistaro

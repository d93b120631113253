#include "commands/build_plan_commands.h"

#include "commands/export_commands.h"
#include "imaging/build_plan_pdf.h"
#include "platform/fault.h"
#include "platform/file_endings.h"
#include "report/viewer.h"

#include <array>

namespace pistaro {

namespace {

/// Has the system show the file, and gives what its user is told of that: no program may come up.
std::string WordsOnOpening(const std::filesystem::path& file) {
    try {
        OpenInViewer(TextFromPath(file));
        return "Your system's program for such files opens it, if there is one.";
    } catch (const Fault&) {
        return "No program was found that opens it.";
    }
}

} // namespace

std::optional<PlanFormat> PlanFormatOf(const std::filesystem::path& file) {
    constexpr std::array endings{FileEnding<PlanFormat>{".html", PlanFormat::Html},
                                 FileEnding<PlanFormat>{".pdf", PlanFormat::Pdf}};
    return FormatIn(endings, file);
}

std::string BuildPlanBytes(const Catalogue& catalogue, const BuildPlan& plan, PlanFormat format,
                           const PaperSize& paper) {
    return format == PlanFormat::Html ? BuildPlanPage(catalogue, plan) : BuildPlanPdf(catalogue, plan, paper);
}

void BuildPlanCommand(Session& session) {
    const auto file = ChooseFileToWrite(session, {.Saving = true,
                                                  .Title = "Build Plan",
                                                  .Filter = "Web page (*.html)|*.html|PDF (*.pdf)|*.pdf",
                                                  .DefaultName = FileTitleOf(session) + "-plan.html",
                                                  .Folder = ExportFolderOf(session)});
    if (!file) return;
    const auto format = PlanFormatOf(*file);
    if (!format) throw Fault("Unknown format", TextFromPath(*file) + ": the file's ending is neither .html nor .pdf");
    const BuildPlan plan = BuildPlanOf(session.Catalogue, session.Project, AllTracks);
    const PaperSize paper = FindPaper(session.Habits.Paper).value_or(PaperA4);
    ReplaceFile(*file, BuildPlanBytes(session.Catalogue, plan, *format, paper));
    session.Habits.ExportFolder = TextFromPath(std::filesystem::absolute(*file).parent_path());
    session.Prompts.TellWritten(*file, WordsOnOpening(*file) + (plan.LeftOut.empty() ? "" : "\n" + plan.LeftOut));
}

} // namespace pistaro

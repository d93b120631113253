#include "commands/build_plan_commands.h"

#include "commands/export_commands.h"
#include "imaging/build_plan_pdf.h"
#include "platform/fault.h"
#include "platform/file_endings.h"
#include "report/build_plan.h"
#include "report/viewer.h"

#include <array>

namespace pistaro {

std::optional<PlanFormat> PlanFormatOf(const std::filesystem::path& file) {
    constexpr std::array endings{FileEnding<PlanFormat>{".html", PlanFormat::Html},
                                 FileEnding<PlanFormat>{".pdf", PlanFormat::Pdf}};
    return FormatIn(endings, file);
}

std::string BuildPlanBytes(const Catalogue& catalogue, const Project& project, int track, PlanFormat format,
                           const PaperSize& paper) {
    const BuildPlan plan = BuildPlanOf(catalogue, project, track);
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
    ReplaceFile(*file, BuildPlanBytes(session.Catalogue, session.Project, AllTracks, *format, PaperA4));
    OpenInViewer(TextFromPath(*file));
}

} // namespace pistaro

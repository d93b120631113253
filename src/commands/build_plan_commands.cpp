#include "commands/build_plan_commands.h"

#include "commands/export_commands.h"
#include "imaging/build_plan_pdf.h"
#include "platform/fault.h"
#include "platform/file_endings.h"
#include "report/viewer.h"

#include <array>

namespace pistaro {

namespace {

constexpr std::array Endings{FileEnding<PlanFormat>{".html", PlanFormat::Html},
                             FileEnding<PlanFormat>{".pdf", PlanFormat::Pdf}};

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

std::optional<PlanFormat> PlanFormatOf(const std::filesystem::path& file) { return FormatIn(Endings, file); }

const char* EndingOf(PlanFormat format) { return EndingOf(Endings, format); }

std::string BuildPlanBytes(const Catalogue& catalogue, const BuildPlan& plan, PlanFormat format,
                           const PaperSize& paper) {
    return format == PlanFormat::Html ? BuildPlanPage(catalogue, plan) : BuildPlanPdf(catalogue, plan, paper);
}

std::optional<PlanFormat> WriteBuildPlan(Session& session, const BuildPlan& plan, PlanFormat format,
                                         const PaperSize& paper) {
    const bool asPage = format == PlanFormat::Html;
    const PlanFormat other = asPage ? PlanFormat::Pdf : PlanFormat::Html;
    const FileChoice choice{.Saving = true,
                            .Title = "Build Plan",
                            .Filter = asPage ? "Web page|*.html" : "PDF|*.pdf",
                            .DefaultName = FileTitleOf(session) + "-plan" + EndingOf(format),
                            .Folder = ExportFolderOf(session),
                            .KeepsEnding = true};
    const auto file = AskForFile(session, choice, {EndingOf(format), EndingOf(other)});
    if (!file) return std::nullopt;
    const PlanFormat written = *PlanFormatOf(*file);
    ReplaceFile(*file, BuildPlanBytes(session.Catalogue, plan, written, paper));
    session.Habits.ExportFolder = TextFromPath(std::filesystem::absolute(*file).parent_path());
    session.Prompts.TellWritten(*file, WordsOnOpening(*file) + (plan.LeftOut.empty() ? "" : "\n" + plan.LeftOut));
    return written;
}

} // namespace pistaro

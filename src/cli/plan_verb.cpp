#include "cli/plan_verb.h"

#include "cli/exit_status.h"
#include "cli/export_verb.h"
#include "cli/start.h"
#include "commands/build_plan_commands.h"
#include "imaging/circuit_picture.h"
#include "platform/files.h"

namespace pistaro {

std::string WhyNoPlanFile(const std::string& name) {
    return PlanFormatOf(PathFromText(name)) ? "" : name + ": the file's ending is neither .html nor .pdf";
}

std::string WhyNotTogether(const PlanArguments& arguments) {
    const bool onPaper = PlanFormatOf(PathFromText(arguments.Out)) == PlanFormat::Pdf;
    return arguments.Paper.empty() || onPaper ? "" : "--paper goes with .pdf alone";
}

void PlanVerb(const VerbContext& context, const std::filesystem::path& circuit, const PlanArguments& arguments) {
    const std::filesystem::path file = PathFromText(arguments.Out);
    const Project project = StartWithCircuit(context, circuit);
    CheckMayWrite(file, arguments.Force);
    const OffscreenGraphics graphics;
    CheckNotInput(context, circuit, file);
    const BuildPlan plan = BuildPlanOf(context.Catalogue, project, TrackIn(arguments.Track));
    ReplaceFile(file, BuildPlanBytes(context.Catalogue, plan, *PlanFormatOf(file),
                                     FindPaper(arguments.Paper).value_or(PaperA4)));
    context.Output << TextFromPath(file) << '\n';
    if (!plan.LeftOut.empty()) context.Errors << "pistaro: " << OnOneLine(plan.LeftOut) << '\n';
}

} // namespace pistaro

// The verbs that read and show.
#include "cli/verbs.h"

#include "cli/catalogue_json.h"
#include "cli/layout_json.h"
#include "cli/script.h"
#include "cli/settings_json.h"
#include "cli/start.h"
#include "editor/circuit_commands.h"
#include "imaging/circuit_picture.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "storage/line_reader.h"

#include <fstream>
#include <sstream>

namespace pistaro {

namespace {

constexpr std::size_t MostPictureBytes = 256 << 20;

} // namespace

void LayoutVerb(const VerbContext& context, const std::filesystem::path& circuit) {
    const Project project = StartWithCircuit(context, circuit);
    context.Output << Line(LayoutJson(project.Layout)) << '\n';
}

void PictureVerb(const VerbContext& context, const std::filesystem::path& circuit, const PictureOptions& options) {
    Project project = StartWithCircuit(context, circuit);
    project.ShowNumbers = options.Numbers;
    std::optional<PictureBackground> background;
    if (const auto& file = options.Background) background = {ReadFile(*file, MostPictureBytes), TextFromPath(*file)};
    const OffscreenGraphics graphics;
    const std::string format = PictureFormatOf(options.Out);
    ReplaceFile(options.Out, CircuitPicture(project, options.Pixels, background, format));
    context.Output << TextFromPath(options.Out) << '\n';
}

void ScriptVerb(const VerbContext& context, const std::string& script, const OptionalPath& circuit) {
    Start start = StartVerb(context);
    PrintMessages(start.Messages, context.Errors);
    const bool typed = script == "-";
    std::istringstream lines(typed ? std::string() : ReadFile(PathFromText(script), MostFileBytes));
    if (circuit) LoadCircuit(start.Design, *circuit);
    RunScript(start.Design, typed ? context.Input : lines, script, context.Output);
}

void CatalogueVerb(const VerbContext& context, bool json) {
    PrintMessages(StartVerb(context).Messages, context.Errors);
    context.Output << (json ? Line(CatalogueJson()) + '\n' : CatalogueTable());
}

void SettingsVerb(const VerbContext& context, bool json) {
    const Start start = StartVerb(context);
    const Json settings = SettingsJson(start.Design, TextFromPath(start.SettingsPath), start.Messages);
    context.Output << (json ? Line(settings) + '\n' : SettingsTable(settings));
}

} // namespace pistaro

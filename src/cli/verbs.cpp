// Each verb's job: settings and circuit are read, the core does the work, the result is printed.
#include "cli/verbs.h"

#include "cli/catalogue_json.h"
#include "cli/layout_json.h"
#include "cli/script.h"
#include "cli/settings_json.h"
#include "cli/start.h"
#include "cli/stats_json.h"
#include "editor/circuit_commands.h"
#include "imaging/circuit_picture.h"
#include "imaging/piece_picture.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "report/guide.h"
#include "stats/shopping_list.h"
#include "storage/line_reader.h"

#include <sstream>

namespace pistaro {

namespace {

/// What `compute` makes of a circuit. A sum that overflows knows no file; the fault then names the circuit's.
template <typename Compute>
auto NamingFile(const std::filesystem::path& circuit, Compute compute) {
    try {
        return compute();
    } catch (const Fault& fault) {
        throw Fault(TextFromPath(circuit), fault.what());
    }
}

} // namespace

void LayoutVerb(const VerbContext& context, const std::filesystem::path& circuit) {
    const Project project = StartWithCircuit(context, circuit);
    context.Output << Line(LayoutJson(project.Layout)) << '\n';
}

void StatsVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
               bool json) {
    const Project project = StartWithCircuit(context, circuit);
    context.Output << NamingFile(circuit, [&] {
        const Detail detail = ShowDetail(project, options.Track, options.IncludeOwned);
        return json ? Line(StatsJson(project, detail)) + '\n' : StatsTable(project, detail);
    });
}

void ShopVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
              const OptionalPath& folder) {
    const Project project = StartWithCircuit(context, circuit);
    const Detail detail = NamingFile(circuit, [&] { return ShowDetail(project, options.Track, options.IncludeOwned); });
    const std::filesystem::path list = folder.value_or(circuit.parent_path()) / ShoppingListName;
    ReplaceFile(list, ShoppingListBytes(project, detail));
    context.Output << TextFromPath(list) << '\n';
}

void GuideVerb(const VerbContext& context, const std::filesystem::path& circuit, const OptionalPath& folder) {
    constexpr const char* format = "gif";
    Project project = StartWithCircuit(context, circuit);
    const std::filesystem::path into = folder.value_or(circuit.parent_path());
    project.WorkingDirectory = TextFromPath((into.empty() ? "." : into) / "");
    const OffscreenGraphics graphics;
    const GuidePictures pictures{
        .Piece = [](const Project& design, std::string_view code) { return PiecePicture(design, code, format); },
        .Circuit = [](Project& design) { return CircuitPicture(design, PictureOptions().Pixels, {}, format); }};
    for (const std::filesystem::path& file : WriteGuide(project, pictures, [](int, int) {}))
        context.Output << TextFromPath(into / file.filename()) << '\n';
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
    RunScript(start.Design, typed ? context.Input : lines, script, context.Output, start.Messages);
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

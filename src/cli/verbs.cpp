#include "cli/verbs.h"

#include "checks/check.h"
#include "cli/catalogue_json.h"
#include "cli/check_json.h"
#include "cli/foreground.h"
#include "cli/purchase_json.h"
#include "cli/script.h"
#include "cli/settings_json.h"
#include "cli/start.h"
#include "cli/stats_json.h"
#include "commands/circuit_commands.h"
#include "commands/picture_commands.h"
#include "exchange/layout_json.h"
#include "imaging/circuit_picture.h"
#include "money/purchase_text.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "platform/places.h"
#include "platform/processes.h"
#include "report/guide.h"
#include "stats/shopping_list.h"
#include "storage/line_reader.h"
#include "storage/sets_file.h"

#include <list>
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

/// Those of the file beside the settings; none where it is not there.
BoxedSets SetsBesideSettings(const VerbContext& context) {
    return SetsBeside(context.Catalogue, context.SettingsFile.value_or(SettingsPath())).value_or(BoxedSets());
}

} // namespace

void FlushOutput(const VerbContext& context) {
    if (!context.Output.flush()) throw Fault("Disk full", "the standard output");
}

void LayoutVerb(const VerbContext& context, const std::filesystem::path& circuit) {
    const Project project = StartWithCircuit(context, circuit);
    context.Output << Line(LayoutJson(context.Catalogue, project.Design.Circuit)) << '\n';
}

void StatsVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
               bool json) {
    const Project project = StartWithCircuit(context, circuit);
    context.Output << NamingFile(circuit, [&] {
        const Detail detail =
            ShowDetail(context.Catalogue, project.Stock, project.Design.Circuit, options.Track, options.IncludeOwned);
        return json ? Line(StatsJson(context.Catalogue, project, detail)) + '\n'
                    : StatsTable(context.Catalogue, project, detail);
    });
}

void CheckVerb(const VerbContext& context, const std::filesystem::path& circuit, bool json) {
    const Project project = StartWithCircuit(context, circuit);
    const std::vector<Finding> findings = NamingFile(circuit, [&] { return FindingsOf(context.Catalogue, project); });
    context.Output << (json ? Line(FindingsJson(findings)) + '\n' : FindingsTable(findings));
    if (HasErrors(findings)) throw BadResult();
}

void RulesVerb(const VerbContext& context, const OptionalPath& circuit, bool json) {
    if (circuit)
        StartWithCircuit(context, *circuit);
    else
        PrintMessages(StartVerb(context).Messages, context.Errors);
    context.Output << (json ? Line(RulesJson()) + '\n' : RulesTable());
}

void BalanceVerb(const VerbContext& context, const std::filesystem::path& circuit, int track, bool json) {
    const Project project = StartWithCircuit(context, circuit);
    Json tracks = Json::array();
    for (int each = 0; each < TrackCount; ++each) {
        const bool isChosen = track == AllTracks || track == each;
        if (!isChosen || project.Design.Circuit.Tracks[static_cast<std::size_t>(each)].ElementCodes.empty()) continue;
        const Balance balance = BalanceLanes(context.Catalogue, project.Design, each);
        if (json)
            tracks.push_back(BalanceJson(each, balance));
        else
            context.Output << BalanceTable(each, balance, project.Preferences.Units);
    }
    if (json) context.Output << Line({{"tracks", std::move(tracks)}}) << '\n';
}

void BuyVerb(const VerbContext& context, const std::filesystem::path& circuit, const OptionalPath& sets, bool json) {
    const Project project = StartWithCircuit(context, circuit);
    const BoxedSets boxes = sets ? ReadSets(context.Catalogue, *sets) : SetsBesideSettings(context);
    const std::vector<int> missing = MissingPieces(context.Catalogue, project.Stock, project.Design.Circuit);
    const Interruptions interruptions;
    const Purchase purchase =
        CheapestPurchase(missing, project.Stock, boxes, {.Progress = {}, .Stop = interruptions.Stop()});
    context.Output << (json ? Line(PurchaseJson(context.Catalogue, project, boxes, purchase)) + '\n'
                            : PurchaseText(ReportOf(context.Catalogue, project, boxes, purchase)));
}

void ShopVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
              const OptionalPath& folder, bool csv) {
    const Project project = StartWithCircuit(context, circuit);
    const Detail detail = NamingFile(circuit, [&] {
        return ShowDetail(context.Catalogue, project.Stock, project.Design.Circuit, options.Track,
                          options.IncludeOwned);
    });
    const std::filesystem::path into = folder.value_or(circuit.parent_path());
    std::list<WrittenFile> written; // both of them before the first takes its place
    std::string names;
    const auto write = [&](const char* name, const std::string& bytes) {
        const std::filesystem::path file = into / name;
        CheckNotInput(context, circuit, file);
        written.emplace_back(file, bytes);
        names += TextFromPath(file) + '\n';
    };
    write(ShoppingListName, ShoppingListBytes(context.Catalogue, project.Stock, project.Preferences.Units, detail));
    if (csv) write(ShoppingTableName, ShoppingTableBytes(project.Stock, project.Preferences.Units, detail));
    for (WrittenFile& file : written)
        file.TakePlace();
    context.Output << names;
}

void GuideVerb(const VerbContext& context, const std::filesystem::path& circuit, const OptionalPath& folder) {
    Project project = StartWithCircuit(context, circuit);
    const std::filesystem::path into = folder.value_or(circuit.parent_path());
    project.Preferences.WorkingDirectory = TextFromPath((into.empty() ? "." : into) / "");
    CheckNotInput(context, circuit, GuidePageFile(project.Preferences));
    const OffscreenGraphics graphics;
    const Interruptions interruptions; // one that comes while the files are written comes too late
    const GuidePictures pictures = GuidePicturesOf(context.Catalogue, DefaultPicturePixels, std::nullopt);
    const std::vector<GuideFile> files =
        InForeground(interruptions, context.Errors, "guide",
                     [&](const JobWatch& watch) { return DrawGuide(context.Catalogue, project, pictures, watch); });
    for (const std::filesystem::path& file : WriteGuide(project.Preferences, files))
        context.Output << TextFromPath(into / file.filename()) << '\n';
}

void PictureVerb(const VerbContext& context, const std::filesystem::path& circuit, const PictureOptions& options) {
    Project project = StartWithCircuit(context, circuit);
    CheckNotInput(context, circuit, options.Out);
    project.EditState.ShowNumbers = options.Numbers;
    std::optional<Picture> background;
    if (options.Background) background = Picture::Read(*options.Background);
    const OffscreenGraphics graphics;
    const PictureFormat format = PictureFormatOf(options.Out);
    ReplaceFile(options.Out, CircuitPicture(context.Catalogue, project, options.Pixels, background, format,
                                            options.Surface ? TrackLook::Surface : TrackLook::Lines));
    context.Output << TextFromPath(options.Out) << '\n';
}

void ScriptVerb(const VerbContext& context, const std::string& script, const OptionalPath& circuit) {
    VerbStart start = StartVerb(context);
    PrintMessages(start.Messages, context.Errors);
    const bool typed = script == "-";
    std::istringstream lines(typed ? std::string() : ReadFile(PathFromText(script), MostFileBytes));
    ScriptPrompts prompts;
    Session session(context.Catalogue, prompts, std::move(start.Project), context.SettingsFile.value_or(""));
    if (circuit) LoadFileCommand(session, *circuit);
    RunScript(session, prompts, typed ? context.Input : lines, script, context.Output, start);
}

void CatalogueVerb(const VerbContext& context, bool json) {
    PrintMessages(StartVerb(context).Messages, context.Errors);
    context.Output << (json ? Line(CatalogueJson(context.Catalogue)) + '\n' : CatalogueTable(context.Catalogue));
}

void SettingsVerb(const VerbContext& context, bool json) {
    const VerbStart start = StartVerb(context);
    const Json settings =
        SettingsJson(context.Catalogue, start.Project, TextFromPath(start.SettingsPath), start.Messages);
    context.Output << (json ? Line(settings) + '\n' : SettingsTable(settings));
}

} // namespace pistaro

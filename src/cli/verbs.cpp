#include "cli/verbs.h"

#include "cli/catalogue_json.h"
#include "cli/layout_json.h"
#include "cli/script.h"
#include "cli/settings_json.h"
#include "cli/start.h"
#include "cli/stats_json.h"
#include "commands/circuit_commands.h"
#include "commands/picture_commands.h"
#include "imaging/circuit_picture.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "platform/processes.h"
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

/// The line in which a terminal shows how far a job is; it ends however the job does.
class ProgressLine {
public:
    ProgressLine(std::ostream& errors, const char* what) : errors_(errors), what_(what) {}
    ~ProgressLine() {
        if (shown_) errors_ << '\n' << std::flush;
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(int done, int total) {
        shown_ = true;
        errors_ << '\r' << what_ << ": " << done << " of " << total << std::flush;
    }

private:
    std::ostream& errors_;
    const char* what_;
    bool shown_ = false;
};

/// What a job gives that is waited for: shown on a terminal, and stopped by Ctrl+C.
template <typename Work>
auto InForeground(const Interruptions& interruptions, std::ostream& errors, const char* what, Work work) {
    JobWatch watch{.Progress = {}, .Stop = interruptions.Stop()};
    ProgressLine line(errors, what);
    if (StandardErrorIsTerminal()) watch.Progress = [&](int done, int total) { line.Show(done, total); };
    return work(watch);
}

} // namespace

void LayoutVerb(const VerbContext& context, const std::filesystem::path& circuit) {
    const Project project = StartWithCircuit(context, circuit);
    context.Output << Line(LayoutJson(context.Pieces, project.Design.Circuit)) << '\n';
}

void StatsVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
               bool json) {
    const Project project = StartWithCircuit(context, circuit);
    context.Output << NamingFile(circuit, [&] {
        const Detail detail =
            ShowDetail(context.Pieces, project.Stock, project.Design.Circuit, options.Track, options.IncludeOwned);
        return json ? Line(StatsJson(context.Pieces, project, detail)) + '\n'
                    : StatsTable(context.Pieces, project, detail);
    });
}

void ShopVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
              const OptionalPath& folder) {
    const Project project = StartWithCircuit(context, circuit);
    const Detail detail = NamingFile(circuit, [&] {
        return ShowDetail(context.Pieces, project.Stock, project.Design.Circuit, options.Track, options.IncludeOwned);
    });
    const std::filesystem::path list = folder.value_or(circuit.parent_path()) / ShoppingListName;
    ReplaceFile(list, ShoppingListBytes(context.Pieces, project.Stock, project.Preferences.DisplayUnits, detail));
    context.Output << TextFromPath(list) << '\n';
}

void GuideVerb(const VerbContext& context, const std::filesystem::path& circuit, const OptionalPath& folder) {
    Project project = StartWithCircuit(context, circuit);
    const std::filesystem::path into = folder.value_or(circuit.parent_path());
    project.Preferences.WorkingDirectory = TextFromPath((into.empty() ? "." : into) / "");
    GuidePageFile(project.Preferences);
    const OffscreenGraphics graphics;
    const Interruptions interruptions; // one that comes while the files are written comes too late
    const GuidePictures pictures = GuidePicturesOf(context.Pieces, DefaultPicturePixels, std::nullopt);
    const std::vector<GuideFile> files =
        InForeground(interruptions, context.Errors, "guide",
                     [&](const JobWatch& watch) { return DrawGuide(context.Pieces, project, pictures, watch); });
    for (const std::filesystem::path& file : WriteGuide(project.Preferences, files))
        context.Output << TextFromPath(into / file.filename()) << '\n';
}

void PictureVerb(const VerbContext& context, const std::filesystem::path& circuit, const PictureOptions& options) {
    Project project = StartWithCircuit(context, circuit);
    project.EditState.ShowNumbers = options.Numbers;
    std::optional<Picture> background;
    if (options.Background) background = Picture::Read(*options.Background);
    const OffscreenGraphics graphics;
    const PictureFormat format = PictureFormatOf(options.Out);
    ReplaceFile(options.Out, CircuitPicture(context.Pieces, project, options.Pixels, background, format,
                                            options.Surface ? TrackLook::Surface : TrackLook::Lines));
    context.Output << TextFromPath(options.Out) << '\n';
}

void ScriptVerb(const VerbContext& context, const std::string& script, const OptionalPath& circuit) {
    VerbStart start = StartVerb(context);
    PrintMessages(start.Messages, context.Errors);
    const bool typed = script == "-";
    std::istringstream lines(typed ? std::string() : ReadFile(PathFromText(script), MostFileBytes));
    ScriptPrompts prompts;
    Session session(context.Pieces, prompts, std::move(start.Project), context.SettingsFile.value_or(""));
    if (circuit) LoadFileCommand(session, *circuit);
    RunScript(session, prompts, typed ? context.Input : lines, script, context.Output, start.Messages);
}

void CatalogueVerb(const VerbContext& context, bool json) {
    PrintMessages(StartVerb(context).Messages, context.Errors);
    context.Output << (json ? Line(CatalogueJson(context.Pieces)) + '\n' : CatalogueTable(context.Pieces));
}

void SettingsVerb(const VerbContext& context, bool json) {
    const VerbStart start = StartVerb(context);
    const Json settings = SettingsJson(context.Pieces, start.Project, TextFromPath(start.SettingsPath), start.Messages);
    context.Output << (json ? Line(settings) + '\n' : SettingsTable(settings));
}

} // namespace pistaro

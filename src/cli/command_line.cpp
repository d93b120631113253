// The grammar of the command line; each verb's function does the rest.
#include "cli/command_line.h"

#include "cli/close.h"
#include "cli/exit_status.h"
#include "cli/export_verb.h"
#include "cli/generate.h"
#include "cli/option_checks.h"
#include "cli/plan_verb.h"
#include "cli/recover.h"
#include "cli/verbs.h"
#include "platform/files.h"
#include "version.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace pistaro {

namespace {

/// What the arguments say, filled in by the parser.
struct Arguments {
    std::optional<std::string> SettingsFile, Circuit, Background, OutFolder, RecoveredWork;
    std::string DesignerCircuit, Script, Out;
    int Pixels = PictureOptions().Pixels;
    std::string Track = "all";
    std::optional<std::string> SetsFile;
    bool Rules = false, Csv = false;
    bool IncludeOwned = false, Numbers = false, Surface = false, Json = false, NoSplash = false;
    ClosingOptions Closing;
    GenerateOptions Generate;
    std::optional<std::string> RoomOf;
    std::string ClosedTrack = "1", Tolerance = "0.5";
    ExportArguments Export;
    PlanArguments Plan;
};

OptionalPath PathIn(const std::string& text) {
    return text.empty() ? OptionalPath() : OptionalPath(PathFromText(text));
}

OptionalPath PathIn(const std::optional<std::string>& text) {
    return text ? OptionalPath(PathFromText(*text)) : OptionalPath();
}

/// The verbs as the parser knows them, each with the job that it stands for.
class VerbParser {
public:
    VerbParser(const Catalogue& catalogue, CLI::App& app, Arguments& given)
        : catalogue_(catalogue), app_(app), given_(given) {
        AddLayout();
        AddStats();
        AddCheck();
        AddBalance();
        AddShop();
        AddBuy();
        AddGuide();
        AddPicture();
        AddExport();
        AddPlan();
        AddScript();
        AddCatalogue();
        AddSettings();
        AddRecover();
        AddClose();
        AddGenerate();
    }
    VerbParser(const VerbParser&) = delete;
    VerbParser& operator=(const VerbParser&) = delete;

    /// The job of the verb that the arguments name; empty when they name none.
    const VerbJob& Named() const { return named_; }

private:
    void AddLayout() {
        CLI::App* const verb = Add("layout", "Print where every piece lies, as JSON",
                                   [this](const VerbContext& context) { LayoutVerb(context, Circuit()); });
        TakeCircuit(verb);
    }

    void AddStats() {
        CLI::App* const verb =
            Add("stats", "Print lengths, prices, counts and design checks",
                [this](const VerbContext& context) { StatsVerb(context, Circuit(), Detail(), given_.Json); });
        TakeCircuit(verb);
        TakeDetail(verb);
        TakeJson(verb);
    }

    void AddCheck() {
        const VerbJob job = [this](const VerbContext& context) {
            given_.Rules ? RulesVerb(context, PathIn(given_.Circuit), given_.Json)
                         : CheckVerb(context, Circuit(), given_.Json);
        };
        CLI::App* const verb = Add("check", "Tell what is wrong with the circuit", job);
        const CLI::Option* const circuit = TakeCircuit(verb, false);
        TakeJson(verb);
        verb->add_flag("--rules", given_.Rules, "List the rules instead");
        verb->final_callback([this, circuit, job] {
            if (circuit->empty() && !given_.Rules) throw CLI::RequiredError("CIRCUIT");
            named_ = job;
        });
    }

    void AddShop() {
        CLI::App* const verb = Add("shop", "Write the shopping list", [this](const VerbContext& context) {
            ShopVerb(context, Circuit(), Detail(), PathIn(given_.OutFolder), given_.Csv);
        });
        TakeCircuit(verb);
        TakeDetail(verb);
        verb->add_option("--out", given_.OutFolder, "The folder that the list is written into");
        verb->add_flag("--csv", given_.Csv, "Write it for spreadsheets too, beside the list");
    }

    void AddBalance() {
        CLI::App* const verb =
            Add("balance", "Propose the fewest changes that make both lanes equally long",
                [this](const VerbContext& context) { BalanceVerb(context, Circuit(), Detail().Track, given_.Json); });
        TakeCircuit(verb);
        TakeTrack(verb, given_.Track);
        TakeJson(verb);
    }

    void AddBuy() {
        CLI::App* const verb =
            Add("buy", "Find the cheapest way to buy what is missing", [this](const VerbContext& context) {
                BuyVerb(context, Circuit(), PathIn(given_.SetsFile), given_.Json);
            });
        TakeCircuit(verb);
        verb->add_option("--sets", given_.SetsFile, "The file of boxed sets, in place of the one beside the settings");
        TakeJson(verb);
    }

    void AddGuide() {
        CLI::App* const verb =
            Add("guide", "Write the design guide: a page and its pictures",
                [this](const VerbContext& context) { GuideVerb(context, Circuit(), PathIn(given_.OutFolder)); });
        TakeCircuit(verb);
        verb->add_option("--out", given_.OutFolder, "The folder that the guide is written into");
    }

    void AddPicture() {
        CLI::App* const verb =
            Add("picture", "Draw the circuit into a picture file", [this](const VerbContext& context) {
                PictureVerb(context, Circuit(),
                            {PathFromText(given_.Out), given_.Pixels, given_.Numbers, PathIn(given_.Background),
                             given_.Surface});
            });
        TakeCircuit(verb);
        verb->add_option("--out", given_.Out, "The picture file: " + PictureEndings())
            ->required()
            ->check(WhyNoPictureFile);
        verb->add_option("--size", given_.Pixels, "Width and height in pixels")->check(PlainNumber(1, 10000));
        verb->add_flag("--numbers", given_.Numbers, "Print the elements' numbers");
        verb->add_option("--background", given_.Background, "A picture that lies behind the drawing");
        verb->add_flag("--surface", given_.Surface, "Draw the tracks as they look: bed, slots and kerbs");
    }

    void AddExport() {
        ExportArguments& given = given_.Export;
        CLI::App* const verb = AddChecked(
            "export", "Write the circuit as a file for other programs or for paper",
            [&given] { return WhyNotTogether(given); },
            [this](const VerbContext& context) { ExportVerb(context, Circuit(), given_.Export); });
        TakeCircuit(verb);
        verb->add_option("--out", given.Out, "The file: " + ExportEndings())->required()->check(WhyNoExportFile);
        verb->add_option("--scale", given.Scale, "1:N, such as 1:10")->check(WhyNoScale);
        verb->add_option("--paper", given.Paper, "The paper: " + PaperNames())->check(WhyNoPaper);
        verb->add_flag("--tiles", given.Tiles, "Several sheets, to be laid side by side");
        verb->add_option("--dpi", given.DotsPerInch, "Dots an inch of a picture")->check(WhyNoResolution);
        verb->add_flag("--numbers", given.Numbers, "Print the elements' numbers");
        verb->add_flag("--grid", given.Grid, "Draw the grid");
        verb->add_flag("--room", given.Room, "Draw the room");
        verb->add_flag("--surface", given.Surface, "Draw the tracks as they look: beds, kerbs and lanes");
        verb->add_flag("--background", given.Background, "Draw the picture that lies under the circuit to scale");
        TakeTrack(verb, given.Track);
        verb->add_flag("--force", given.Force, "Replace a file that is there already");
    }

    void AddPlan() {
        PlanArguments& given = given_.Plan;
        CLI::App* const verb = AddChecked(
            "plan", "Write the build plan: what is needed, and the pieces in steps with pictures",
            [&given] { return WhyNotTogether(given); },
            [this](const VerbContext& context) { PlanVerb(context, Circuit(), given_.Plan); });
        TakeCircuit(verb);
        verb->add_option("--out", given.Out, "The file: .html, .pdf")->required()->check(WhyNoPlanFile);
        verb->add_option("--paper", given.Paper, "The paper of a PDF: " + PaperNames())->check(WhyNoPaper);
        TakeTrack(verb, given.Track);
        verb->add_flag("--force", given.Force, "Replace a file that is there already");
    }

    void AddScript() {
        CLI::App* const verb = Add("script", "Run editing commands, one a line", [this](const VerbContext& context) {
            ScriptVerb(context, given_.Script, PathIn(given_.Circuit));
        });
        verb->add_option("FILE", given_.Script, "The script, or - for the standard input")->required();
        TakeCircuit(verb, false);
    }

    void AddCatalogue() {
        TakeJson(Add("catalogue", "Print the catalogue of pieces",
                     [this](const VerbContext& context) { CatalogueVerb(context, given_.Json); }));
    }

    void AddSettings() {
        TakeJson(Add("settings", "Print the settings as read",
                     [this](const VerbContext& context) { SettingsVerb(context, given_.Json); }));
    }

    void AddRecover() {
        CLI::App* const verb =
            Add("recover", "List unsaved work that was kept, or copy one of it", [this](const VerbContext& context) {
                if (!given_.RecoveredWork) return ListRecoveredVerb(context);
                CopyRecoveredVerb(context, *given_.RecoveredWork, PathFromText(given_.Out));
            });
        CLI::Option* const name = verb->add_option("NAME", given_.RecoveredWork, "The work's name in the list");
        CLI::Option* const out = verb->add_option("--out", given_.Out, "The new file that it is copied to");
        name->needs(out);
        out->needs(name);
    }

    void AddClose() {
        CLI::App* const verb =
            Add("close", "Print pieces that close a track, as JSON", [this](const VerbContext& context) {
                double millimetres = 0;
                std::from_chars(given_.Tolerance.data(), given_.Tolerance.data() + given_.Tolerance.size(),
                                millimetres);
                given_.Closing.Tolerance = millimetres / 10;
                CloseVerb(context, Circuit(), given_.ClosedTrack.front() - '1', given_.Closing);
            });
        TakeCircuit(verb);
        ClosingOptions& closing = given_.Closing;
        verb->add_option("--track", given_.ClosedTrack, "The track: 1, 2 or 3")->check(CLI::IsMember({"1", "2", "3"}));
        verb->add_option("--max-pieces", closing.MostPieces, "The most pieces to lay: 1 to 12")
            ->check(PlainNumber(1, 12));
        verb->add_option("--limit", closing.Limit, "The most suggestions: 1 to 100")->check(PlainNumber(1, 100));
        verb->add_option("--tolerance", given_.Tolerance, "How far the ends may lie apart, in millimetres")
            ->check(WhyNoTolerance);
        verb->add_option("--replace", closing.MostRemoved,
                         "The most neighbouring pieces to take out for others: 0 to 4")
            ->check(PlainNumber(0, 4));
        verb->add_flag("--owned", closing.OwnedOnly, "Only pieces that are owned and not used");
    }

    void AddGenerate() {
        GenerateOptions& options = given_.Generate;
        CLI::App* const verb =
            Add("generate", "Lay circuits from a box of pieces into a folder", [this](const VerbContext& context) {
                given_.Generate.RoomOf = PathIn(given_.RoomOf);
                given_.Generate.Out = PathFromText(given_.Out);
                GenerateVerb(context, given_.Generate);
            });
        CLI::Option_group* const room = verb->add_option_group("The room");
        room->add_option("--room", given_.RoomOf, "A circuit file: its room")->type_name("CIRCUIT");
        room->add_option_function<std::string>(
                "--area", [&options](const std::string& text) { options.Area = *AreaOf(text); },
                "A rectangle: width and height in cm")
            ->check(WhyNoArea)
            ->type_name("WxH");
        room->require_option(1);
        CLI::Option_group* const box = verb->add_option_group("The box");
        box->add_flag("--owned", options.IsOwned, "What is owned");
        box->add_option("--pieces", options.Pieces, "Products with counts: C160=8,C151=8")
            ->check([this](const auto& text) { return WhyNoBox(catalogue_, text); });
        box->require_option(1);
        constexpr int mostCircuits = 100;
        verb->add_option("--seed", options.Seed, "Another number gives other circuits: 0 to 9223372036854775807")
            ->check(PlainNumber<std::int64_t>(0, std::numeric_limits<std::int64_t>::max()));
        verb->add_option("--count", options.Count, "How many: 1 to 100")->check(PlainNumber(1, mostCircuits));
        verb->add_option("--seconds", options.Seconds, "The most time that it may take")->check(WhyNoSeconds);
        verb->add_option("--out", given_.Out, "The folder: a new or an empty one")->required();
    }

    CLI::App* Add(const char* name, const char* description, const VerbJob& job) {
        CLI::App* const verb = app_.add_subcommand(name, description);
        verb->final_callback([this, job] { named_ = job; });
        return verb;
    }

    /// A verb whose options do not all go together.
    CLI::App* AddChecked(const char* name, const char* description, const std::function<std::string()>& whyNot,
                         const VerbJob& job) {
        CLI::App* const verb = app_.add_subcommand(name, description);
        verb->final_callback([this, whyNot, job] {
            const std::string reason = whyNot();
            if (!reason.empty()) throw CLI::ValidationError(reason);
            named_ = job;
        });
        return verb;
    }

    CLI::Option* TakeCircuit(CLI::App* verb, bool required = true) {
        return verb->add_option("CIRCUIT", given_.Circuit, "The circuit file (*.trk)")->required(required);
    }

    static void TakeTrack(CLI::App* verb, std::string& track) {
        verb->add_option("--track", track, "The track: 1, 2, 3 or all")->check(CLI::IsMember({"1", "2", "3", "all"}));
    }

    void TakeDetail(CLI::App* verb) {
        TakeTrack(verb, given_.Track);
        verb->add_flag("--include-owned", given_.IncludeOwned, "Include already owned track");
    }

    void TakeJson(CLI::App* verb) { verb->add_flag("--json", given_.Json, "Print one line of JSON"); }

    std::filesystem::path Circuit() const { return PathFromText(given_.Circuit.value_or("")); }

    DetailOptions Detail() const {
        return {given_.Track == "all" ? AllTracks : given_.Track.front() - '1', given_.IncludeOwned};
    }

    const Catalogue& catalogue_;
    CLI::App& app_;
    Arguments& given_;
    VerbJob named_;
};

/// A name that is neither a verb nor a circuit file is a slip of the pen, not a design.
bool LooksLikeCircuit(const std::string& name) {
    std::error_code toldByTheLoad;
    return name.empty() || name.ends_with(".trk") || std::filesystem::exists(PathFromText(name), toldByTheLoad) ||
           toldByTheLoad;
}

/// "--settings=" and its like: the parser would take the next argument for the value, be it the verb.
std::optional<std::string> OptionWithoutValue(const std::vector<std::string>& arguments) {
    const auto end = std::ranges::find(arguments, "--");
    const auto found = std::find_if(arguments.begin(), end, [](const std::string& argument) {
        return argument.starts_with("--") && argument.find('=') == argument.size() - 1;
    });
    return found == end ? std::nullopt : std::optional(*found);
}

/// The help of the verb that the arguments name, else of the program.
std::string Usage(const CLI::App& app) {
    const auto named = app.get_subcommands();
    return named.empty() ? app.help() : named.front()->help(app.get_name());
}

/// The program's own options; gives the one that takes the designer's circuit.
const CLI::Option* AddProgramOptions(CLI::App& app, Arguments& values) {
    app.allow_windows_style_options(false); // "/" begins a path, there as elsewhere
    app.set_version_flag("--version", std::string("pistaro ") + Version);
    app.add_option("--settings", values.SettingsFile, "The settings file, in place of the usual one");
    app.add_flag("--no-splash", values.NoSplash, "Open the designer without its opening picture");
    app.fallthrough(); // so that --settings goes before and after the verb
    app.require_subcommand(0, 1);
    app.footer("--settings FILE goes with every verb: that file in place of the usual settings file.");
    return app.add_option("CIRCUIT", values.DesignerCircuit, "The circuit that the designer opens");
}

} // namespace

CommandLineResult RunCommandLine(const Catalogue& catalogue, const std::vector<std::string>& arguments,
                                 std::istream& input, std::ostream& output, std::ostream& errors) {
    CLI::App app("Pistaro, a layout designer for slot-car racing track.", "pistaro");
    Arguments values;
    const CLI::Option* const designerCircuit = AddProgramOptions(app, values);
    VerbParser verbs(catalogue, app, values);
    const auto usage = [&](const std::string& reason) {
        errors << "pistaro: " << OnOneLine(reason) << '\n' << Usage(app);
        return CommandLineResult{2, std::nullopt};
    };
    if (const auto option = OptionWithoutValue(arguments)) return usage(*option + " has no value");
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::Success& success) { // help or version
        const VerbJob print = [&](const VerbContext& context) { app.exit(success, context.Output, context.Errors); };
        return {ExitStatusOf(print, {catalogue, std::nullopt, input, output, errors}), std::nullopt};
    } catch (const CLI::ParseError& error) {
        return usage(error.what());
    }
    const std::string& circuit = values.DesignerCircuit;
    if (!verbs.Named()) {
        if (!LooksLikeCircuit(circuit)) return usage("there is no verb \"" + circuit + "\"");
        return {0, DesignerOptions{PathIn(circuit), PathIn(values.SettingsFile), values.NoSplash}};
    }
    // What the verb does not take falls through to the designer's own argument.
    if (designerCircuit->count() > 0) return usage("\"" + circuit + "\" was not expected");
    return {ExitStatusOf(verbs.Named(), {catalogue, PathIn(values.SettingsFile), input, output, errors}), std::nullopt};
}

} // namespace pistaro

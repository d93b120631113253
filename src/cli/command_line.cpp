// The grammar of the command line; each verb's function does the rest.
#include "cli/command_line.h"

#include "cli/verbs.h"
#include "imaging/circuit_picture.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "version.h"

#include <CLI/CLI.hpp>

#include <functional>

namespace pistaro {

namespace {

/// What the arguments say, filled in by the parser.
struct Arguments {
    std::optional<std::string> Settings, Background, OutFolder;
    std::string DesignerCircuit, Circuit, Script, Out;
    int Pixels = 700;
    std::string Track = "all";
    bool IncludeOwned = false, Numbers = false, Json = false, NoSplash = false;
};

OptionalPath PathIn(const std::string& text) {
    return text.empty() ? OptionalPath() : OptionalPath(PathFromText(text));
}

OptionalPath PathIn(const std::optional<std::string>& text) {
    return text ? OptionalPath(PathFromText(*text)) : OptionalPath();
}

/// An option's check: empty when the file's ending names a picture format.
std::string WhyNoPictureFile(const std::string& name) {
    try {
        PictureFormatOf(PathFromText(name));
        return {};
    } catch (const Fault& fault) {
        return fault.what();
    }
}

int TrackIn(const std::string& text) { return text == "all" ? AllTracks : text.front() - '1'; }

using Job = std::function<void(const VerbContext&)>;

/// Adds the verbs; the one that is named leaves its job in `job`.
void AddVerbs(CLI::App& app, Arguments& arguments, Job& job) {
    const auto circuitOf = [&](CLI::App* verb, bool required) {
        verb->add_option("CIRCUIT", arguments.Circuit, "The circuit file (*.trk)")->required(required);
    };
    const auto jsonOf = [&](CLI::App* verb) { verb->add_flag("--json", arguments.Json, "Print one line of JSON"); };
    const auto add = [&](const char* name, const char* description, const Job& verbsJob) {
        CLI::App* const verb = app.add_subcommand(name, description);
        verb->final_callback([&job, verbsJob] { job = verbsJob; });
        return verb;
    };
    const auto detailOf = [&](CLI::App* verb) {
        verb->add_option("--track", arguments.Track, "The track: 1, 2, 3 or all")
            ->check(CLI::IsMember({"1", "2", "3", "all"}));
        verb->add_flag("--include-owned", arguments.IncludeOwned, "Include already owned track");
    };
    const auto detail = [&] { return DetailOptions{TrackIn(arguments.Track), arguments.IncludeOwned}; };
    const auto circuit = [&] { return PathFromText(arguments.Circuit); };

    circuitOf(add("layout", "Print where every piece lies, as JSON",
                  [circuit](const VerbContext& context) { LayoutVerb(context, circuit()); }),
              true);

    CLI::App* const stats = add(
        "stats", "Print lengths, prices, counts and design checks",
        [&, circuit, detail](const VerbContext& context) { StatsVerb(context, circuit(), detail(), arguments.Json); });
    circuitOf(stats, true);
    detailOf(stats);
    jsonOf(stats);

    CLI::App* const shop = add("shop", "Write the shopping list", [&, circuit, detail](const VerbContext& context) {
        ShopVerb(context, circuit(), detail(), PathIn(arguments.OutFolder));
    });
    circuitOf(shop, true);
    detailOf(shop);
    shop->add_option("--out", arguments.OutFolder, "The folder that the list is written into");

    CLI::App* const guide =
        add("guide", "Write the design guide: a page and its pictures",
            [&, circuit](const VerbContext& context) { GuideVerb(context, circuit(), PathIn(arguments.OutFolder)); });
    circuitOf(guide, true);
    guide->add_option("--out", arguments.OutFolder, "The folder that the guide is written into");

    CLI::App* const picture =
        add("picture", "Draw the circuit into a picture file", [&, circuit](const VerbContext& context) {
            PictureVerb(
                context, circuit(),
                {PathFromText(arguments.Out), arguments.Pixels, arguments.Numbers, PathIn(arguments.Background)});
        });
    circuitOf(picture, true);
    picture->add_option("--out", arguments.Out, "The picture file: .bmp, .png, .gif or .jpg")
        ->required()
        ->check(WhyNoPictureFile);
    picture->add_option("--size", arguments.Pixels, "Width and height in pixels")->check(CLI::Range(1, 10000));
    picture->add_flag("--numbers", arguments.Numbers, "Print the elements' numbers");
    picture->add_option("--background", arguments.Background, "A picture that lies behind the drawing");

    CLI::App* const script = add("script", "Run editing commands, one a line", [&](const VerbContext& context) {
        ScriptVerb(context, arguments.Script, PathIn(arguments.Circuit));
    });
    script->add_option("FILE", arguments.Script, "The script, or - for the standard input")->required();
    circuitOf(script, false);

    jsonOf(add("catalogue", "Print the catalogue of pieces",
               [&](const VerbContext& context) { CatalogueVerb(context, arguments.Json); }));
    jsonOf(add("settings", "Print the settings as read",
               [&](const VerbContext& context) { SettingsVerb(context, arguments.Json); }));
}

/// A name that is neither a verb nor a circuit file is a slip of the pen, not a design.
bool LooksLikeCircuit(const std::string& name) {
    return name.empty() || name.ends_with(".trk") || std::filesystem::exists(PathFromText(name));
}

/// The help of the verb that the arguments name, else of the program.
std::string Usage(const CLI::App& app) {
    const auto named = app.get_subcommands();
    return named.empty() ? app.help() : named.front()->help(app.get_name());
}

} // namespace

CommandLineResult RunCommandLine(const std::vector<std::string>& arguments, std::istream& input, std::ostream& output,
                                 std::ostream& errors) {
    CLI::App app("Pistaro, a layout designer for slot-car racing track.", "pistaro");
    Arguments values;
    Job job;
    app.set_version_flag("--version", std::string("pistaro ") + Version);
    app.add_option("--settings", values.Settings, "The settings file, in place of the usual one");
    const CLI::Option* const designerCircuit =
        app.add_option("CIRCUIT", values.DesignerCircuit, "The circuit that the designer opens");
    app.add_flag("--no-splash", values.NoSplash, "Open the designer without its opening picture");
    app.fallthrough(); // so that --settings goes before and behind the verb
    app.require_subcommand(0, 1);
    app.footer("--settings FILE goes with every verb: that file in place of the usual settings file.");
    AddVerbs(app, values, job);
    const auto usage = [&](const std::string& reason) {
        errors << "pistaro: " << reason << '\n' << Usage(app);
        return CommandLineResult{2, std::nullopt};
    };
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::Success& success) { // help or version
        app.exit(success, output, errors);
        return {};
    } catch (const CLI::ParseError& error) {
        return usage(error.what());
    }
    const std::string& circuit = values.DesignerCircuit;
    if (!job) {
        if (!LooksLikeCircuit(circuit)) return usage("there is no verb \"" + circuit + "\"");
        return {0, DesignerOptions{PathIn(circuit), PathIn(values.Settings), values.NoSplash}};
    }
    // What the verb does not take falls through to the designer's own argument.
    if (designerCircuit->count() > 0) return usage("\"" + circuit + "\" was not expected");
    try {
        job({PathIn(values.Settings), input, output, errors});
        if (!output.flush()) throw Fault("Disk full", "the standard output");
    } catch (const std::exception& fault) {
        errors << "pistaro: " << fault.what() << '\n';
        return {1, std::nullopt};
    }
    return {};
}

} // namespace pistaro

#include "cli/export_verb.h"

#include "cli/option_checks.h"
#include "cli/start.h"
#include "imaging/circuit_picture.h"
#include "paper/paper_size.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "storage/background_file.h"

namespace pistaro {

namespace {

/// The N of "1:N".
std::optional<double> ScaleIn(std::string_view text) {
    constexpr double least = 0.001;
    constexpr double most = 100000;
    if (!text.starts_with("1:")) return std::nullopt;
    const std::optional<double> scale = PlainDecimal(text.substr(2));
    return scale && *scale >= least && *scale <= most ? scale : std::nullopt;
}

std::optional<double> ResolutionIn(std::string_view text) {
    constexpr double most = 4800;
    const std::optional<double> dots = PlainDecimal(text);
    return dots && *dots >= 1 && *dots <= most ? dots : std::nullopt;
}

ExportOptions OptionsOf(const ExportArguments& arguments) {
    ExportOptions options;
    options.Parts.Track = TrackIn(arguments.Track);
    options.Parts.Numbers = arguments.Numbers;
    options.Parts.Grid = arguments.Grid;
    options.Parts.Room = arguments.Room;
    options.Parts.Surface = arguments.Surface;
    options.Parts.Background = arguments.Background;
    options.Sheets.Scale = ScaleIn(arguments.Scale);
    options.Sheets.Paper = FindPaper(arguments.Paper);
    options.Sheets.Tiles = arguments.Tiles;
    options.DotsPerInch = ResolutionIn(arguments.DotsPerInch).value_or(options.DotsPerInch);
    return options;
}

} // namespace

int TrackIn(const std::string& text) { return text == "all" ? AllTracks : text.front() - '1'; }

void CheckMayWrite(const std::filesystem::path& file, bool force) {
    std::error_code toldByTheWrite;
    if (!force && std::filesystem::exists(file, toldByTheWrite) && !std::filesystem::is_directory(file, toldByTheWrite))
        throw Fault("File exists", TextFromPath(file) + ": --force replaces it");
}

std::string WhyNoExportFile(const std::string& name) {
    return ExportFormatOf(PathFromText(name)) ? "" : name + ": the file's ending is none of " + ExportEndings();
}

std::string WhyNoScale(const std::string& text) {
    return ScaleIn(text) ? "" : "\"" + text + "\" is no scale such as 1:10";
}

std::string WhyNoPaper(const std::string& name) {
    return FindPaper(name) ? "" : "\"" + name + "\" is none of " + PaperNames();
}

std::string WhyNoResolution(const std::string& text) {
    return ResolutionIn(text) ? "" : "\"" + text + "\" is no number from 1 to 4800";
}

std::string WhyNotTogether(const ExportArguments& arguments) {
    const ExportFormat format = *ExportFormatOf(PathFromText(arguments.Out));
    const bool onPaper = format == ExportFormat::Png || format == ExportFormat::Svg || format == ExportFormat::Pdf;
    const bool drawn = onPaper || format == ExportFormat::Dxf;
    if (arguments.Tiles && format != ExportFormat::Pdf) return "--tiles goes with .pdf alone";
    if (!arguments.DotsPerInch.empty() && format != ExportFormat::Png) return "--dpi goes with .png alone";
    if (!arguments.Paper.empty() && !onPaper) return "--paper goes with .png, .svg and .pdf alone";
    if (!arguments.Scale.empty() && !onPaper && ScaleIn(arguments.Scale) != 1)
        return "--scale goes with .png, .svg and .pdf alone; in other files the circuit has its full size";
    if ((arguments.Numbers || arguments.Grid || arguments.Room) && !drawn)
        return "--numbers, --grid and --room go with drawings alone";
    if (arguments.Surface && !onPaper) return "--surface goes with .png, .svg and .pdf alone";
    if (arguments.Background && !onPaper) return "--background goes with .png, .svg and .pdf alone";
    return {};
}

void ExportVerb(const VerbContext& context, const std::filesystem::path& circuit, const ExportArguments& arguments) {
    const std::filesystem::path file = PathFromText(arguments.Out);
    Project project = StartWithCircuit(context, circuit);
    if (arguments.Background)
        project.Background = std::make_shared<const ScaledBackground>(ReadBackground(BackgroundFileOf(circuit)));
    CheckMayWrite(file, arguments.Force);
    CheckNotInput(context, circuit, file);
    const ExportFormat format = *ExportFormatOf(file);
    std::optional<OffscreenGraphics> graphics; // the other formats need no fonts
    if (format == ExportFormat::Png || format == ExportFormat::Pdf) graphics.emplace();
    ReplaceFile(file, ExportBytes(context.Catalogue, project, format, OptionsOf(arguments)));
    context.Output << TextFromPath(file) << '\n';
}

} // namespace pistaro

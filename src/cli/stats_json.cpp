#include "cli/stats_json.h"

#include "stats/built_frames.h"
#include "stats/design_checks.h"
#include "stats/frames.h"
#include "text/number_text.h"
#include "text/utf8.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace pistaro {

namespace {

/// A length in cm, to a hundredth of a millimetre: what singles leave of it.
Json BuiltLength(double length) { return Number(std::round(length * 1000) / 1000); }

Json BuiltPair(const std::array<double, 2>& lengths) { return {BuiltLength(lengths[0]), BuiltLength(lengths[1])}; }

/// Always cm: once round on the lane that begins on the left, and on the right; where both are joined, the way round
/// twice. Pieces by the same two lanes. The complete circuit has sums alone.
Json AsBuiltJson(const BuiltLanes& lanes, bool isTrack) {
    Json built{{"left", BuiltLength(lanes.Lengths[0])}, {"right", BuiltLength(lanes.Lengths[1])}};
    if (!isTrack) return built;
    built["laps"] = lanes.Laps();
    if (lanes.Joined) built["twoLaps"] = BuiltLength(lanes.Lengths[0] + lanes.Lengths[1]);
    built["pieces"] = Json::array();
    for (const BuiltPiece& piece : lanes.Pieces)
        built["pieces"].push_back(BuiltPair(piece.Lengths));
    return built;
}

Json FrameJson(const StatisticsFrame& frame, const BuiltLanes& lanes, bool isTrack) {
    return {{"name", frame.Name},   {"left", frame.Left},         {"right", frame.Right},
            {"price", frame.Price}, {"elements", frame.Elements}, {"asBuilt", AsBuiltJson(lanes, isTrack)}};
}

Json DetailJson(const Detail& detail) {
    Json counts = Json::object();
    for (const CountLabel& label : detail.Labels)
        counts[label.Tag] = label.Count;
    return {{"track", detail.Track == AllTracks ? Json("all") : Json(detail.Track + 1)},
            {"includeOwned", detail.IncludeOwned},
            {"counts", std::move(counts)},
            {"price", NumberText(detail.TotalPrice)}};
}

/// The blanks that fill `text` up to a column's width; characters count, not bytes.
std::string Filler(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, CharacterCount(text)), ' ');
}

std::string Row(const std::string& caption, const std::vector<std::string>& values) {
    std::string row = caption + Filler(caption, 30);
    for (const std::string& value : values)
        row += Filler(value, 18) + value;
    return row + '\n';
}

std::array<StatisticsFrame, TrackCount + 1> FramesOf(const Catalogue& catalogue, const Project& project) {
    return StatisticsFrames(catalogue, project.Stock, project.Design.Circuit, project.Preferences.Units);
}

std::vector<Message> ChecksOf(const Catalogue& catalogue, const Project& project) {
    return DesignChecks(catalogue, project.Stock, project.Design.Circuit);
}

std::string FramesTable(const Catalogue& catalogue, const Project& project) {
    const auto frames = FramesOf(catalogue, project);
    const auto row = [&](const std::string& caption, std::string StatisticsFrame::*text) {
        std::vector<std::string> values(frames.size());
        std::transform(frames.begin(), frames.end(), values.begin(), std::mem_fn(text));
        return Row(caption, values);
    };
    const Units& units = project.Preferences.Units;
    const std::string unit = std::string(", ") + units.Name();
    return row("", &StatisticsFrame::Name) + row(LeftLengthCaption + unit, &StatisticsFrame::Left) +
           row(RightLengthCaption + unit, &StatisticsFrame::Right) +
           row(PriceCaption + (", " + units.Currency), &StatisticsFrame::Price) +
           row(ElementsCaption, &StatisticsFrame::Elements);
}

std::string DetailTable(const Detail& detail, const std::string& currency) {
    std::string table = DetailCaption(detail) + '\n';
    for (const CountLabel& label : detail.Labels)
        table += Row(label.Description, {NumberText(int{label.Count})});
    return table + Row("Price, " + currency, {NumberText(detail.TotalPrice)});
}

std::string BuiltTable(const Catalogue& catalogue, const Project& project) {
    std::string table;
    const auto frames = BuiltFrames(catalogue, project.Design.Circuit);
    for (int track = 0; track < TrackCount; ++track) {
        const std::string text = LanesText(frames[static_cast<std::size_t>(track)], project.Preferences.Units);
        if (!text.empty()) table += FrameName(track) + " as built: " + text + '\n';
    }
    return table;
}

} // namespace

Json StatsJson(const Catalogue& catalogue, const Project& project, const Detail& detail) {
    Json frames = Json::array();
    const auto built = BuiltFrames(catalogue, project.Design.Circuit);
    std::size_t track = 0;
    for (const StatisticsFrame& frame : FramesOf(catalogue, project)) {
        frames.push_back(FrameJson(frame, built[track], track < TrackCount));
        ++track;
    }
    const Units& units = project.Preferences.Units;
    return {{"units", units.Name()},
            {"currency", units.Currency},
            {"frames", std::move(frames)},
            {"messages", MessagesJson(ChecksOf(catalogue, project))},
            {"detail", DetailJson(detail)}};
}

std::string StatsTable(const Catalogue& catalogue, const Project& project, const Detail& detail) {
    std::string messages;
    for (const Message& message : ChecksOf(catalogue, project))
        messages += message.Text + '\n';
    const std::string built = BuiltTable(catalogue, project);
    return FramesTable(catalogue, project) + '\n' + DetailTable(detail, project.Preferences.Units.Currency) +
           (messages.empty() ? "" : '\n' + messages) + (built.empty() ? "" : '\n' + built);
}

} // namespace pistaro

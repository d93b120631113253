#include "cli/stats_json.h"

#include "stats/design_checks.h"
#include "stats/frames.h"
#include "text/number_text.h"
#include "text/utf8.h"

#include <algorithm>
#include <functional>

namespace pistaro {

namespace {

Json FrameJson(const StatisticsFrame& frame) {
    return {{"name", frame.Name},
            {"left", frame.Left},
            {"right", frame.Right},
            {"price", frame.Price},
            {"elements", frame.Elements}};
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
    return StatisticsFrames(catalogue, project.Stock, project.Design.Circuit, project.Preferences.DisplayUnits);
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
    const Units& units = project.Preferences.DisplayUnits;
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

} // namespace

Json StatsJson(const Catalogue& catalogue, const Project& project, const Detail& detail) {
    Json frames = Json::array();
    for (const StatisticsFrame& frame : FramesOf(catalogue, project))
        frames.push_back(FrameJson(frame));
    const Units& units = project.Preferences.DisplayUnits;
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
    return FramesTable(catalogue, project) + '\n' + DetailTable(detail, project.Preferences.DisplayUnits.Currency) +
           (messages.empty() ? "" : '\n' + messages);
}

} // namespace pistaro

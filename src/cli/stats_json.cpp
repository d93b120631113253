// The statistics document and its table.
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
    for (std::size_t k = 0; k < CountLabels.size(); ++k)
        counts[std::string(CountLabels[k].Tag)] = detail.Counts[k];
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

std::string FramesTable(const Project& project) {
    const auto frames = StatisticsFrames(project);
    const auto row = [&](const std::string& caption, std::string StatisticsFrame::*text) {
        std::vector<std::string> values(frames.size());
        std::transform(frames.begin(), frames.end(), values.begin(), std::mem_fn(text));
        return Row(caption, values);
    };
    const std::string unit = std::string(", ") + project.DisplayUnits.Name();
    return row("", &StatisticsFrame::Name) + row(LeftLengthCaption + unit, &StatisticsFrame::Left) +
           row(RightLengthCaption + unit, &StatisticsFrame::Right) +
           row(PriceCaption + (", " + project.DisplayUnits.Currency), &StatisticsFrame::Price) +
           row(ElementsCaption, &StatisticsFrame::Elements);
}

std::string DetailTable(const Project& project, const Detail& detail) {
    std::string table = DetailCaption(detail) + '\n';
    for (std::size_t k = 0; k < CountLabels.size(); ++k)
        table += Row(std::string(CountLabels[k].Description), {NumberText(int{detail.Counts[k]})});
    return table + Row("Price, " + project.DisplayUnits.Currency, {NumberText(detail.TotalPrice)});
}

} // namespace

Json StatsJson(const Project& project, const Detail& detail) {
    Json frames = Json::array();
    for (const StatisticsFrame& frame : StatisticsFrames(project))
        frames.push_back(FrameJson(frame));
    return {{"units", project.DisplayUnits.Name()},
            {"currency", project.DisplayUnits.Currency},
            {"frames", std::move(frames)},
            {"messages", MessagesJson(DesignChecks(project))},
            {"detail", DetailJson(detail)}};
}

std::string StatsTable(const Project& project, const Detail& detail) {
    std::string messages;
    for (const Message& message : DesignChecks(project))
        messages += message.Text + '\n';
    return FramesTable(project) + '\n' + DetailTable(project, detail) + (messages.empty() ? "" : '\n' + messages);
}

} // namespace pistaro

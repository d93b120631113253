#include "cli/settings_json.h"

namespace pistaro {

namespace {

Json StockJson(const Catalogue& catalogue, const Stock& stock) {
    Json json = Json::object();
    for (const int row : catalogue.HeadRows())
        json[catalogue[row].Code] = {{"owned", stock[row].OwnedCount}, {"price", Number(stock[row].Price)}};
    return json;
}

Json RoomJson(const RoomPolygon& room) {
    Json points = Json::array();
    for (const RoomPoint& point : room.Points)
        points.push_back({point.X, point.Y, point.Line});
    return {{"points", std::move(points)}, {"angle", Number(room.Angle)}};
}

Json ColoursJson(const ColourScheme& colours) {
    Json json;
    for (const ColourSlot& slot : ColourSlots)
        json[slot.Name] = colours.*slot.Slot;
    return json;
}

void AppendRows(std::string& table, const std::string& prefix, const Json& value) {
    if (!value.is_object()) {
        constexpr std::size_t nameWidth = 24;
        std::string name = prefix;
        if (name.size() < nameWidth) name.resize(nameWidth, ' ');
        table.append(name).append(" ").append(value.is_string() ? value.get<std::string>() : Line(value)).append("\n");
        return;
    }
    const std::string inside = prefix.empty() ? prefix : prefix + ".";
    for (const auto& [key, member] : value.items())
        AppendRows(table, inside + key, member);
}

} // namespace

Json SettingsJson(const Catalogue& catalogue, const Project& project, const std::string& path,
                  const std::vector<Message>& messages) {
    const ViewSettings& view = project.Design.View;
    const Preferences& preferences = project.Preferences;
    return {{"path", path},
            {"workingDirectory", preferences.WorkingDirectory},
            {"view",
             {{"midX", Number(view.MidX)},
              {"midY", Number(view.MidY)},
              {"zoom", Number(view.Width)},
              {"mWid", Number(view.MWid)}}},
            {"units", preferences.Units.Name()},
            {"currency", preferences.Units.Currency},
            {"grid", {{"type", preferences.Grid.Type}, {"step", preferences.Grid.Step}}},
            {"room", RoomJson(project.Design.Room)},
            {"stock", StockJson(catalogue, project.Stock)},
            {"colours", ColoursJson(preferences.Colours)},
            {"messages", MessagesJson(messages)}};
}

std::string SettingsTable(const Json& settings) {
    std::string table;
    AppendRows(table, "", settings);
    return table;
}

} // namespace pistaro

#include "cli/state_json.h"

#include "editor/building.h"

namespace pistaro {

namespace {

Json TracksJson(const Circuit& circuit, const EditState& edit) {
    Json tracks = Json::array();
    for (std::size_t track = 0; track < circuit.Tracks.size(); ++track) {
        tracks.push_back({{"start", CursorJson(circuit.Tracks[track].Start())},
                          {"current", edit.CurrentElement[track]},
                          {"codes", circuit.Tracks[track].ElementCodes}});
    }
    return tracks;
}

Json UsedJson(const Catalogue& catalogue, const Circuit& circuit) {
    const UsedCounts counts = CountUsed(catalogue, circuit);
    Json used = Json::object();
    for (int row = 0; row < catalogue.Count(); ++row) {
        if (const int count = counts[static_cast<std::size_t>(row)]; count > 0) used[catalogue[row].Code] = count;
    }
    return used;
}

Json VariantsJson(const Catalogue& catalogue, const Circuit& circuit, const EditState& edit) {
    Json variants = Json::array();
    for (const int row : catalogue.VariantRows()) {
        const std::string_view variant = ProductCode(catalogue[row].Code);
        if (IsVariantOfSelected(catalogue, circuit, edit, variant)) variants.push_back(variant);
    }
    return variants;
}

Json ColoursJson(const StockColours& covered) {
    Json colours = Json::array();
    for (const auto& track : covered) {
        Json names = Json::array();
        for (const bool owned : track)
            names.push_back(owned ? "owned" : "nonowned");
        colours.push_back(std::move(names));
    }
    return colours;
}

} // namespace

Json StateJson(const Catalogue& catalogue, const Project& project) {
    const Circuit& circuit = project.Design.Circuit;
    const EditState& edit = project.EditState;
    const ViewRectangle view = ShownRectangle(project.Design.View);
    return {{"track", edit.ShowsAllTracks() ? Json("all") : Json(edit.CurrentTrack + 1)},
            {"insert", edit.InsertMode},
            {"system", edit.System == TrackSystem::Ninco ? "Ninco" : "Scalextric"},
            {"changed", edit.DataChanged},
            {"tracks", TracksJson(circuit, edit)},
            {"roomAngle", Number(project.Design.Room.Angle)},
            {"view", {Number(view.ViewLeft), Number(view.ViewTop), Number(view.ViewRight), Number(view.ViewBottom)}},
            {"used", UsedJson(catalogue, circuit)},
            {"variants", VariantsJson(catalogue, circuit, edit)},
            {"colours", ColoursJson(AssignStockColours(catalogue, project.Stock, circuit))}};
}

} // namespace pistaro

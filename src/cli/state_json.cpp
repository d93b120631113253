// The state document.
#include "cli/state_json.h"

#include "editor/building.h"
#include "render/stock_colours.h"

namespace pistaro {

namespace {

Json TracksJson(const Circuit& circuit) {
    Json tracks = Json::array();
    for (const Track& track : circuit.Tracks) {
        tracks.push_back(
            {{"start", CursorJson(track.Start())}, {"current", track.CurrentElement}, {"codes", track.ElementCodes}});
    }
    return tracks;
}

Json UsedJson(const Catalogue& catalogue) {
    Json used = Json::object();
    for (const CatalogueEntry& entry : catalogue) {
        if (entry.UsedCount > 0) used[std::string(entry.Code)] = entry.UsedCount;
    }
    return used;
}

Json VariantsJson(const Project& project) {
    Json variants = Json::array();
    for (const std::string_view variant : Variants) {
        if (IsVariantOfSelected(project, variant)) variants.push_back(variant);
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

Json StateJson(Project& project) {
    const StockColours covered = AssignStockColours(project);
    const Circuit& circuit = project.Layout;
    const ViewRectangle view = ShownRectangle(project.View);
    return {{"track", circuit.ShowsAllTracks() ? Json("all") : Json(circuit.CurrentTrack + 1)},
            {"insert", project.InsertMode},
            {"system", project.System == TrackSystem::Ninco ? "Ninco" : "Scalextric"},
            {"changed", project.DataChanged},
            {"tracks", TracksJson(circuit)},
            {"roomAngle", Number(project.Room.Angle)},
            {"view", {Number(view.ViewLeft), Number(view.ViewTop), Number(view.ViewRight), Number(view.ViewBottom)}},
            {"used", UsedJson(project.Pieces)},
            {"variants", VariantsJson(project)},
            {"colours", ColoursJson(covered)}};
}

} // namespace pistaro

#include "exchange/layout_json.h"

#include "layout/placement.h"
#include "layout/track_gap.h"

namespace pistaro {

namespace {

Json PointJson(WorldPoint point) { return {Number(point.X), Number(point.Y)}; }

Json ElementJson(int index, const std::string& code, const BuildCursor& entry, const PiecePlacement* placement) {
    Json element{{"index", index}, {"code", code}, {"entry", CursorJson(entry)}};
    if (placement == nullptr) {
        element["corners"] = nullptr;
        element["label"] = nullptr;
        element["exit"] = CursorJson(entry);
        return element;
    }
    element["corners"] = Json::array();
    for (const WorldPoint corner : placement->Corners.InOrder())
        element["corners"].push_back(PointJson(corner));
    element["label"] = PointJson(placement->Label);
    element["exit"] = CursorJson(placement->Exit);
    return element;
}

Json TrackJson(const Catalogue& catalogue, const Track& track, int number) {
    Json elements = Json::array();
    const BuildCursor end =
        WalkTrack(catalogue, track, [&](int index, const PiecePlacement* placement, const BuildCursor& entry) {
            elements.push_back(
                ElementJson(index, track.ElementCodes[static_cast<std::size_t>(index)], entry, placement));
        });
    Json gap = nullptr;
    if (!track.ElementCodes.empty()) {
        const TrackGap open = GapBetween(track.Start(), end);
        gap = {{"distance", Number(open.Distance)}, {"angle", Number(open.Angle)}};
    }
    return {{"track", number},
            {"start", CursorJson(track.Start())},
            {"elements", std::move(elements)},
            {"end", CursorJson(end)},
            {"gap", std::move(gap)}};
}

} // namespace

Json LayoutJson(const Catalogue& catalogue, const Circuit& circuit) {
    Json tracks = Json::array();
    int number = 0;
    for (const Track& track : circuit.Tracks)
        tracks.push_back(TrackJson(catalogue, track, ++number));
    return {{"tracks", std::move(tracks)}};
}

} // namespace pistaro

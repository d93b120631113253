#include "ui/lanes_overlay.h"

#include "layout/built_lanes.h"
#include "model/length_text.h"
#include "render/track_bed.h"

#include <array>
#include <string>
#include <utility>

namespace pistaro {

namespace {

constexpr std::size_t LanesPerTrack = 2;

Colour ColourOf(std::size_t track, std::size_t lane) {
    constexpr std::array<Colour, LanesPerTrack * TrackCount> colours{
        Rgb(230, 30, 60), Rgb(30, 100, 240), Rgb(245, 150, 0), Rgb(0, 160, 140), Rgb(190, 40, 200), Rgb(110, 160, 0)};
    return colours[LanesPerTrack * track + lane];
}

} // namespace

Overlay LanesOverlay(const Catalogue& catalogue, const Circuit& circuit) {
    constexpr double leastPixels = 4; // a pixel more than the rails, whose place is rounded
    Overlay overlay;
    for (std::size_t track = 0; track < circuit.Tracks.size(); ++track) {
        const bool joined = LanesAsBuilt(catalogue, circuit.Tracks[track]).Joined;
        std::array<std::vector<Segment>, LanesPerTrack> paths = LanePaths(catalogue, circuit.Tracks[track]);
        for (std::size_t lane = 0; lane < paths.size(); ++lane)
            overlay.emplace_back(OverlayPath{.Path = std::move(paths[lane]),
                                             .InkColour = ColourOf(track, joined ? 0 : lane),
                                             .Pixels = leastPixels,
                                             .Centimetres = RailWidth});
    }
    return overlay;
}

std::vector<LegendEntry> LanesLegend(const Catalogue& catalogue, const Circuit& circuit, const Units& units) {
    std::vector<LegendEntry> legend;
    for (std::size_t track = 0; track < circuit.Tracks.size(); ++track) {
        const auto add = [&](std::size_t lane, const std::string& name, double length) {
            legend.push_back({ColourOf(track, lane), "track " + std::to_string(track + 1) + ", " + name + " " +
                                                         FineLength(length, units) + " " + units.Name()});
        };
        const BuiltLanes lanes = LanesAsBuilt(catalogue, circuit.Tracks[track]);
        const auto [left, right] = lanes.Lengths;
        if (lanes.Pieces.empty()) continue;
        if (lanes.Joined) {
            add(0, "two laps", left + right);
        } else {
            add(0, "left", left);
            add(1, "right", right);
        }
    }
    return legend;
}

} // namespace pistaro

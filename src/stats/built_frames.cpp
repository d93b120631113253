#include "stats/built_frames.h"

#include "model/length_text.h"

namespace pistaro {

std::array<BuiltLanes, TrackCount + 1> BuiltFrames(const Catalogue& catalogue, const Circuit& circuit) {
    std::array<BuiltLanes, TrackCount + 1> frames;
    for (std::size_t track = 0; track < circuit.Tracks.size(); ++track) {
        frames[track] = LanesAsBuilt(catalogue, circuit.Tracks[track]);
        for (std::size_t lane = 0; lane < 2; ++lane)
            frames[AllTracks].Lengths[lane] += frames[track].Lengths[lane];
    }
    return frames;
}

std::string LanesText(const BuiltLanes& lanes, const Units& units) {
    const auto [left, right] = lanes.Lengths;
    if (lanes.Pieces.empty()) return "";
    if (lanes.Joined) return "lanes joined, " + FineLength(left + right, units) + " " + units.Name() + " in two laps";
    return "lanes " + FineLength(left, units) + " / " + FineLength(right, units) + " " + units.Name();
}

} // namespace pistaro

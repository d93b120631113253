#include "stats/frames.h"

#include "stats/limits.h"
#include "stats/measure.h"
#include "text/number_text.h"

#include <cmath>

namespace pistaro {

namespace {

std::string WholeUnits(float length, const Units& units) {
    return NumberText(std::floor(static_cast<double>(length) / units.UnitFactor()));
}

StatisticsFrame FrameOf(int track, const Measurement& sum, int elements, const Units& units) {
    return {FrameName(track), WholeUnits(sum.LeftLength, units), WholeUnits(sum.RightLength, units),
            NumberText(sum.TrackPrice), NumberText(Count(elements))};
}

} // namespace

std::string FrameName(int track) { return track == AllTracks ? "Complete Circuit" : "Track " + NumberText(track + 1); }

std::array<StatisticsFrame, TrackCount + 1> StatisticsFrames(const Catalogue& catalogue, const Stock& stock,
                                                             const Circuit& circuit, const Units& units) {
    std::array<StatisticsFrame, TrackCount + 1> frames;
    const auto measured = [&](int track, int elements) {
        return FrameOf(track, Measure(catalogue, stock, circuit, track), elements, units);
    };
    int elementTotal = 0;
    for (int track = 0; track < TrackCount; ++track) {
        const auto at = static_cast<std::size_t>(track);
        const int elements = circuit.Tracks[at].ElementLastIndex() + 1;
        frames[at] = measured(track, elements);
        elementTotal += elements;
    }
    frames[AllTracks] = measured(AllTracks, elementTotal);
    return frames;
}

} // namespace pistaro

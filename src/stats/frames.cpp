// Four measurements as texts.
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

StatisticsFrame FrameOf(const Project& project, int track, int elements) {
    const Measurement sum = Measure(project, track);
    return {FrameName(track), WholeUnits(sum.LeftLength, project.DisplayUnits),
            WholeUnits(sum.RightLength, project.DisplayUnits), NumberText(sum.TrackPrice), NumberText(Count(elements))};
}

} // namespace

std::string FrameName(int track) { return track == AllTracks ? "Complete Circuit" : "Track " + NumberText(track + 1); }

std::array<StatisticsFrame, TrackCount + 1> StatisticsFrames(const Project& project) {
    std::array<StatisticsFrame, TrackCount + 1> frames;
    int elementTotal = 0;
    for (int track = 0; track < TrackCount; ++track) {
        const auto at = static_cast<std::size_t>(track);
        const int elements = project.Layout.Tracks[at].ElementLastIndex() + 1;
        frames[at] = FrameOf(project, track, elements);
        elementTotal += elements;
    }
    frames[AllTracks] = FrameOf(project, AllTracks, elementTotal);
    return frames;
}

} // namespace pistaro

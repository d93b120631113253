// Circuits without a fault, from a seed: rounded rectangles with balanced lanes, in either hand, of one system or both.
#pragma once

#include "model/project.h"
#include "support/pieces.h"

#include <random>
#include <string>
#include <vector>

namespace pistaro {

/// Builds clean projects: enough is owned of all pieces, and a room stands far around the tracks.
class CleanCircuits {
public:
    explicit CleanCircuits(unsigned seed) : random_(seed) {}

    /// A whole number from 0 to `count` - 1.
    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    /// Track 1, and by chance tracks 2 and 3 far beside it.
    Project Next();

    /// Only track 1, of Scalextric pieces with a chicane, a half and a quarter straight.
    Project NextScalextric() { return ProjectOf({ScalextricTrack(CornerOf())}); }

    /// Only track 1, with curves of the inner radius after two standard straights and this many more.
    Project NextWithInnerCurves(int more);

private:
    using Codes = std::vector<std::string>;

    Project ProjectOf(const std::vector<Codes>& tracks);
    Codes CornerOf();
    Codes ScalextricTrack(const Codes& corner);
    Codes NincoTrack();
    Codes MixedTrack();
    Codes Closed(const Codes& side1, const Codes& side2, const Codes& shortSide, const Codes& corner,
                 const std::string& changeOver);

    std::mt19937 random_;
};

} // namespace pistaro

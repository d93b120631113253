// The statistics' four frames as the texts that they show.
#pragma once

#include "model/stock.h"
#include "model/view_settings.h"

#include <array>
#include <string>

namespace pistaro {

inline constexpr const char* LeftLengthCaption = "Left Track Length";
inline constexpr const char* RightLengthCaption = "Right Track Length";
inline constexpr const char* PriceCaption = "Track Price";
inline constexpr const char* ElementsCaption = "Number of Elements";

/// "Track 1" to "Track 3" for 0..2, "Complete Circuit" for AllTracks.
std::string FrameName(int track);

/// Lengths are whole display units, cut; the price is in the user's currency.
struct StatisticsFrame {
    std::string Name, Left, Right, Price, Elements;
};

/// Tracks 1 to 3, each measured alone, and the complete circuit. Fault when a sum overflows.
std::array<StatisticsFrame, TrackCount + 1> StatisticsFrames(const Catalogue& catalogue, const Stock& stock,
                                                             const Circuit& circuit, const Units& units);

} // namespace pistaro

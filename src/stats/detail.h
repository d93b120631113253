// How many pieces of each product a track or the circuit needs, and what they cost.
#pragma once

#include "model/project.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace pistaro {

/// A product's count label with the text beside it.
struct CountLabel {
    int Index;            ///< the product's row in the tally
    std::string_view Tag; ///< the product code
    std::string_view Description;
};

/// In the order in which they are shown. The second "C8010" of the tally has no label of its own.
inline constexpr std::array<CountLabel, 28> CountLabels{{
    {0, "C151", "C151 - standard curve 45"},      {1, "C152", "C152 - inner curve 45"},
    {2, "C153", "C153 - outer curve 22.5"},       {3, "C154", "C154 - standard curve 22.5"},
    {4, "C156", "C156 - inner curve 90"},         {5, "C157", "C157 - short straight"},
    {6, "C158", "C158 - quarter straight"},       {7, "C159", "C159 - half straight"},
    {8, "C160", "C160 - standard straight"},      {9, "C187", "C187 - banked curve 60"},
    {10, "N10102", "N10102 - standard straight"}, {11, "N10103", "N10103 - half straight"},
    {12, "N10104", "N10104 - quarter straight"},  {13, "N10105", "N10105 - standard curve"},
    {14, "N10106", "N10106 - inner curver"},      {15, "N10107", "N10107 - outer curve"},
    {16, "N10108", "N10108 - outmost curve"},     {17, "N10110", "N10110 - converter"},
    {18, "C164", "C164 - rough terrain"},         {19, "C248", "C248 - hump back bridge"},
    {20, "C8005", "C8005 - skid chicane"},        {21, "C8006", "C8006 - change over track"},
    {22, "C8007", "C8007 - standard chicane"},    {23, "C8009", "C8009 - chicane extension"},
    {24, "C277", "C277 - lap counter"},           {25, "C367", "C367 - rev start section"},
    {26, "C8010", "C8010 - curved chicane ext"},  {28, "N10111", "N10111 - change-over"},
}};

struct Detail {
    int Track = AllTracks; ///< 0..2, or AllTracks
    bool IncludeOwned = false;
    std::array<std::int16_t, CountLabels.size()> Counts{}; ///< beside CountLabels; that of "N10111" stays 0
    float TotalPrice = 0;
};

/// The pieces of track 0..2 or of AllTracks; without `includeOwned` only those beyond the owned ones. The total prices
/// every head row, so "C8010" at each hand's price. Fault when a count or the total overflows.
Detail ShowDetail(const Project& project, int track, bool includeOwned);

/// "Track 1: pieces to buy", or "Complete Circuit: all pieces" with the owned ones.
std::string DetailCaption(const Detail& detail);

} // namespace pistaro

// What a closed circuit looks like to somebody who counts no pieces: how its heading goes around a lap.
#pragma once

#include "catalogue/catalogue.h"

#include <array>
#include <complex>
#include <vector>

namespace pistaro {

struct CircuitLook {
    static constexpr std::size_t Count = 16; ///< of harmonics: finer bends nobody sees

    /// Of the heading, driven anticlockwise, less the even turn of a circle; radians. A straight in two halves has
    /// those of a whole one.
    std::array<std::complex<double>, Count> Harmonics{};
    std::array<double, Count> Sizes{}; ///< the harmonics' absolute values, the same wherever a lap begins
    double Length = 1;                 ///< of a lap, cm
};

CircuitLook LookOf(const Catalogue& catalogue, const std::vector<int>& rows);

/// By how much two look different at least, radians of heading on an average: quickly told, and 0 for the same circuit
/// turned, mirrored, run backwards or started elsewhere.
double LeastDifference(const CircuitLook& one, const CircuitLook& other);

/// How much two look alike: from 0, nothing, to 1 for those between which there is no such difference.
double Likeness(const CircuitLook& one, const CircuitLook& other);

/// Whether a person takes both for the same circuit at a glance, however it is turned or mirrored.
bool LookAlike(const CircuitLook& one, const CircuitLook& other);

/// Whether side by side both look like one idea, laid with another piece or two.
bool LookRelated(const CircuitLook& one, const CircuitLook& other);

} // namespace pistaro

#include "search/circuit_look.h"

#include "catalogue/track_geometry.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

using Complex = std::complex<double>;

/// Radians of heading on an average. Of pairs of found circuits that were looked at, those with less were one circuit
/// laid a little differently, and those with 0.35 two circuits.
constexpr double MostAlike = 0.24;
constexpr double MostRelated = 0.32;

/// The places along a lap at which a circuit is tried to begin for the comparison.
constexpr std::size_t Beginnings = 96;

struct Stretch {
    double Length, Turn; ///< along the middle of the track, cm; radians to the left
};

Stretch StretchOf(const PieceKind& kind) {
    if (kind.Shape == PieceShape::Straight) return {kind.Length, 0};
    const double side = kind.Shape == PieceShape::LeftCurve ? 1 : -1;
    return {kind.Turn * (kind.InnerRadius + kind.OuterRadius) / 2, side * kind.Turn};
}

/// As they are driven anticlockwise.
std::vector<Stretch> StretchesOf(const Catalogue& catalogue, const std::vector<int>& rows) {
    std::vector<Stretch> stretches;
    stretches.reserve(rows.size());
    double turn = 0;
    for (const int row : rows) {
        stretches.push_back(StretchOf(catalogue[row].Kind));
        turn += stretches.back().Turn;
    }
    if (turn >= 0) return stretches;
    std::ranges::reverse(stretches);
    for (Stretch& stretch : stretches)
        stretch.Turn = -stretch.Turn;
    return stretches;
}

const std::array<Complex, Beginnings>& RootsOfOne() {
    static const std::array<Complex, Beginnings> roots = [] {
        std::array<Complex, Beginnings> all;
        for (std::size_t i = 0; i < Beginnings; ++i)
            all[i] = std::polar(1.0, 2 * PiValue * static_cast<double>(i) / Beginnings);
        return all;
    }();
    return roots;
}

double DifferenceInLength(const CircuitLook& one, const CircuitLook& other) {
    return std::log(one.Length / other.Length);
}

/// The square of the mean difference in heading of all harmonics that differ by so much.
double MeanSquare(double sumOfSquares) { return 2 * sumOfSquares; }

/// The least sum of the squares by which the harmonics differ, wherever the one begins.
double LeastSquares(const CircuitLook& one, const CircuitLook& other, bool mirrored) {
    std::array<Complex, CircuitLook::Count> products;
    double squares = 0;
    for (std::size_t k = 0; k < CircuitLook::Count; ++k) {
        // Mirrored and then driven anticlockwise again the heading goes the other way round and backwards.
        const Complex harmonic = mirrored ? -std::conj(other.Harmonics[k]) : other.Harmonics[k];
        products[k] = one.Harmonics[k] * std::conj(harmonic);
        squares += one.Sizes[k] * one.Sizes[k] + other.Sizes[k] * other.Sizes[k];
    }
    double most = -squares;
    for (std::size_t begin = 0; begin < Beginnings; ++begin) {
        double shared = 0;
        for (std::size_t k = 0; k < CircuitLook::Count; ++k) {
            const Complex root = RootsOfOne()[(k + 1) * begin % Beginnings];
            shared += products[k].real() * root.real() - products[k].imag() * root.imag();
        }
        most = std::max(most, shared);
    }
    return squares - 2 * most;
}

/// Whether two differ by no more than that, wherever they begin and whichever way they are driven.
bool DifferAtMost(double most, const CircuitLook& one, const CircuitLook& other) {
    if (LeastDifference(one, other) > most) return false;
    const double squares = std::min(LeastSquares(one, other, false), LeastSquares(one, other, true));
    return std::hypot(std::sqrt(MeanSquare(std::max(squares, 0.0))), DifferenceInLength(one, other)) <= most;
}

} // namespace

CircuitLook LookOf(const Catalogue& catalogue, const std::vector<int>& rows) {
    CircuitLook look;
    const std::vector<Stretch> stretches = StretchesOf(catalogue, rows);
    look.Length = 0;
    for (const Stretch& stretch : stretches)
        look.Length += stretch.Length;
    for (std::size_t k = 0; k < CircuitLook::Count; ++k) {
        const auto order = static_cast<double>(k + 1);
        Complex sum = 0;
        double driven = 0;
        Complex before = 1;
        for (const Stretch& stretch : stretches) {
            driven += stretch.Length;
            const Complex behind = std::polar(1.0, -order * 2 * PiValue * driven / look.Length);
            sum += stretch.Turn * look.Length / (2 * PiValue * stretch.Length) * (before - behind);
            before = behind;
        }
        look.Harmonics[k] = -sum / (2 * PiValue * order * order);
        look.Sizes[k] = std::abs(look.Harmonics[k]);
    }
    return look;
}

double LeastDifference(const CircuitLook& one, const CircuitLook& other) {
    double squares = 0;
    for (std::size_t k = 0; k < CircuitLook::Count; ++k)
        squares += (one.Sizes[k] - other.Sizes[k]) * (one.Sizes[k] - other.Sizes[k]);
    return std::hypot(std::sqrt(MeanSquare(squares)), DifferenceInLength(one, other));
}

double Likeness(const CircuitLook& one, const CircuitLook& other) {
    constexpr double nothingAlike = 0.8; // radians of heading
    return std::max(0.0, 1 - LeastDifference(one, other) / nothingAlike);
}

bool LookAlike(const CircuitLook& one, const CircuitLook& other) { return DifferAtMost(MostAlike, one, other); }

bool LookRelated(const CircuitLook& one, const CircuitLook& other) { return DifferAtMost(MostRelated, one, other); }

} // namespace pistaro

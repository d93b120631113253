// Closed circuits by the hundred, of a seed, and what is cut out of them: made without the search that is tested on
// them.
#pragma once

#include "model/project.h"

#include <cstdint>

namespace pistaro {

/// The same numbers on every machine.
class SeededNumbers {
public:
    explicit SeededNumbers(std::uint64_t seed) : state_(seed * 2 + 1) {}

    /// 0 to count - 1.
    int Below(int count) {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return static_cast<int>((state_ * 0x2545F4914F6CDD1D >> 33) % static_cast<std::uint64_t>(count));
    }

private:
    std::uint64_t state_;
};

enum class Systems { Scalextric, Ninco, Both };

/// A track whose pieces lie on no other one and end where they began: half a lap that turns by half a circle, twice.
Track ClosedTrack(SeededNumbers& numbers, Systems systems);

/// The track without `count` neighbouring pieces, begun behind them.
Track CutOpen(const Track& closed, int at, int count);

struct CutCircuit {
    Project Open;
    int Cut = 0; ///< pieces
};

/// A closed track of random systems, cut open by 1 to `most` pieces, in a room that it fits, with what is owned and
/// what it costs.
CutCircuit RandomCut(SeededNumbers& numbers, int most);

} // namespace pistaro

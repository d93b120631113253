// Random numbers that are the same on every machine and with every library.
#pragma once

#include <cstdint>

namespace pistaro {

/// SplitMix64: every seed gives a sequence of its own.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t Next() {
        state_ += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        return mixed ^ (mixed >> 31);
    }

    /// 0 to `count` - 1; `count` is above 0.
    std::size_t Below(std::size_t count) { return static_cast<std::size_t>((Next() >> 32) * count >> 32); }

    /// Whether something happens that happens `times` of `outOf` times.
    bool Happens(std::size_t times, std::size_t outOf) { return Below(outOf) < times; }

private:
    std::uint64_t state_;
};

} // namespace pistaro

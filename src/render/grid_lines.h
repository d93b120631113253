// Where a grid's lines run in one direction.
#pragma once

#include <cmath>

namespace pistaro {

/// Multiples of the step, cm, from one step before a range to one step after it.
struct GridLines {
    GridLines(double from, double to, double step)
        : Step(step), First(std::floor((from - step) / step)), Last(std::floor((to + step) / step)) {}

    double Step, First, Last;

    int Count() const { return static_cast<int>(Last - First) + 1; }
    float At(int i) const { return static_cast<float>(Step * (First + i)); }
    float Begin() const { return At(0); }
    float End() const { return At(Count() - 1); }
};

} // namespace pistaro

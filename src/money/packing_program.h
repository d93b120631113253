// A linear program of the one form that bounds purchases: maximise gain · u, where rows · u <= limits and u >= 0. All
// limits are 0 or more, so that u = 0 is a beginning.
#pragma once

#include <vector>

namespace pistaro {

struct PackingProgram {
    std::vector<double> Gain;              ///< by variable
    std::vector<std::vector<double>> Rows; ///< by row, then by variable
    std::vector<double> Limits;            ///< by row
};

struct PackingSolution {
    double Value = 0;
    std::vector<double> Multipliers; ///< by row: what the value gains by a limit that is higher by one
};

/// Solves it by the simplex method. Some row must bound every variable that gains.
PackingSolution Solve(const PackingProgram& program);

} // namespace pistaro

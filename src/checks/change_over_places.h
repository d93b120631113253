// How well change-overs lie on a track.
#pragma once

#include "catalogue/catalogue.h"
#include "model/circuit.h"

#include <span>
#include <vector>

namespace pistaro {

class ChangeOverPlaces {
public:
    ChangeOverPlaces(const Catalogue& catalogue, const Track& track);

    /// 0 where all that are put into it lie well. Cars that change lanes twice in a row, or before they have gathered
    /// speed, get in each other's way: it grows with each that is put near another one or near the start. What stands
    /// at a replaced place goes.
    int Awkwardness(std::span<const int> put, std::span<const int> replaced) const;

private:
    bool AreNear(int one, int other) const;

    int size_;
    std::vector<int> standing_, starts_;
};

} // namespace pistaro

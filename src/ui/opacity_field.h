// How much of the picture under the circuit shows, as fields for whole percent have it.
#pragma once

#include "model/scaled_background.h"

#include <QString>

#include <cmath>

namespace pistaro {

inline int PercentOf(double opacity) { return static_cast<int>(std::lround(opacity * 100)); }
inline double OpacityOf(int percent) { return percent / 100.0; }

/// Prepares a box or a slider for it.
template <typename Field>
Field* ForOpacity(Field* field) {
    constexpr int step = 10; // percent
    field->setRange(PercentOf(LeastOpacity), 100);
    if constexpr (requires { field->setPageStep(step); }) {
        field->setPageStep(step);
    } else {
        field->setSingleStep(step);
        field->setSuffix(" %");
    }
    field->setToolTip("How much of the picture shows: less lets the track and the grid stand out");
    return field;
}

} // namespace pistaro

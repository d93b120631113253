// What a circuit file holds.
#pragma once

#include "model/circuit.h"
#include "model/room_polygon.h"
#include "model/view_settings.h"

namespace pistaro {

struct Design {
    pistaro::Circuit Circuit = EmptyCircuit();
    RoomPolygon Room;
    ViewSettings View;

    bool operator==(const Design&) const = default;
};

} // namespace pistaro

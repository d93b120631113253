#include "model/circuit.h"

namespace pistaro {

Circuit EmptyCircuit() {
    Circuit circuit;
    circuit.Tracks[1].TrackStartX = TrackSpacing;
    circuit.Tracks[2].TrackStartX = -TrackSpacing;
    return circuit;
}

} // namespace pistaro

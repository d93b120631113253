// The empty circuit.
#include "model/circuit.h"

namespace pistaro {

Circuit EmptyCircuit() {
    Circuit circuit;
    circuit.Tracks[1].TrackStartX = TrackSpacing;
    circuit.Tracks[2].TrackStartX = -TrackSpacing;
    return circuit;
}

std::string SelectedCode(const Circuit& circuit) {
    const Track* const track = circuit.Current();
    if (track == nullptr || track->CurrentElement < 0) return {};
    return track->ElementCodes[static_cast<std::size_t>(track->CurrentElement)];
}

} // namespace pistaro

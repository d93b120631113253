// The picture under a drawing on paper, for callers that know nothing of Qt.
#pragma once

#include "imaging/picture.h"
#include "paper/circuit_drawing.h"

#include <memory>

namespace pistaro {

class ScaledBackdrop;

/// What of the world a background covers in its room. Fault: its bytes are no picture.
Box GroundUnder(const ScaledBackground& background, const RoomPolygon& room, DecodedPicture& pictures);

/// The picture of a drawing's background as it looks on white paper, in greys where the drawing is in black and white;
/// null where it has none. The drawing is told what it covers. Fault: the bytes are no picture.
std::shared_ptr<const ScaledBackdrop> TakeBackdrop(CircuitDrawing& drawing, DecodedPicture& pictures);

} // namespace pistaro

// The picture under a drawing on paper, for callers that know nothing of Qt.
#pragma once

#include "imaging/picture.h"
#include "paper/circuit_drawing.h"

#include <memory>

namespace pistaro {

class ScaledBackdrop;

/// The picture of a drawing's background, in greys where that is in black and white; null where it has none. The
/// drawing is told what it covers. Fault: the bytes are no picture.
std::shared_ptr<const ScaledBackdrop> TakeBackdrop(CircuitDrawing& drawing, DecodedPicture& pictures);

} // namespace pistaro

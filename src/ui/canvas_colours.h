// The colours of the window's drawing on a dark desktop.
#pragma once

#include "model/colour_scheme.h"

#include <QPalette>

namespace pistaro {

/// The colours that the window's drawing is shown in: the user's own. Where these are still the initial ones and the
/// desktop is dark, such as can be told apart on its ground. Settings, pictures and guide know nothing of it.
ColourScheme CanvasColours(const ColourScheme& set, const ColourScheme& initial, const QPalette& desktop);

} // namespace pistaro

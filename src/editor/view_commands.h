// Zooming and scrolling.
#pragma once

#include "model/view_settings.h"

namespace pistaro {

inline constexpr float SmallestZoomableWidth = 20; ///< cm; a view this narrow is zoomed in no further

/// Whether the view is wider than SmallestZoomableWidth.
bool CanZoomIn(const ViewSettings& view);

/// Takes 10 cm off every side of the view, or adds them.
void ZoomIn(ViewSettings& view);
void ZoomOut(ViewSettings& view);

/// What a change of the horizontal bar's value does; nothing if it stands there already.
void ScrollHorizontally(ViewSettings& view, int value);

/// The same for the vertical bar, which grows downwards while y grows upwards: the view's centre is minus its value.
void ScrollVertically(ViewSettings& view, int value);

/// Moves the view, as its scroll bars do, so that a place of the world which it does not show lies in its middle, as
/// far as the bars reach.
void BringIntoView(ViewSettings& view, double x, double y);

/// The bars' small and large steps in cm.
int SmallScrollStep(const ViewSettings& view);
int LargeScrollStep(const ViewSettings& view);

} // namespace pistaro

// Zooming and scrolling.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/ground.h"
#include "model/design.h"

#include <optional>

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

/// Puts the view's centre there, in whole cm: where the bars stand then, and where a saved file brings it back to.
/// Beyond their ranges the bars' ranges come along.
void CentreView(ViewSettings& view, double x, double y);

/// Makes the view so wide (cm) around a point that stays where it is shown, up to the centre's whole cm.
void ZoomAt(ViewSettings& view, WorldPoint fixed, double width);

/// What notches of the wheel do at a point: each takes the steps of ZoomIn or ZoomOut that come nearest to an eighth of
/// the width, one at least, or, finely, a tenth of them. `notches` is positive to zoom in, which ends where ZoomIn is
/// not offered any more.
void ZoomByNotches(ViewSettings& view, WorldPoint at, int notches, bool finely);

/// All tracks' ground and the room's corners; nothing where there is neither.
std::optional<GroundBox> ExtentOf(const Catalogue& catalogue, const Design& design);

/// Centres the view's square on all that there is, `besides` included, with a margin around it; on the default view
/// where there is nothing.
void FitView(const Catalogue& catalogue, Design& design, const std::optional<GroundBox>& besides = {});

/// Whether the box lies inside what a window covers of the world, or its middle where it is larger than that.
bool IsShown(const GroundBox& box, const ViewRectangle& covered);

/// Moves the view no further than it takes to have the box inside what a window covers of the world.
void FollowTo(ViewSettings& view, const GroundBox& box, const ViewRectangle& covered);

/// The ground of a track into which elements were put before others, where all of it lay in what a window covers before
/// these made room; nothing in any other case.
std::optional<GroundBox> ExtentAfterInsertion(const Catalogue& catalogue, const Track& before, const Track& after,
                                              const ViewRectangle& covered);

/// The bars' small and large steps in cm.
int SmallScrollStep(const ViewSettings& view);
int LargeScrollStep(const ViewSettings& view);

} // namespace pistaro

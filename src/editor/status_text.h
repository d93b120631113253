// The line that tells how the design stands.
#pragma once

#include "layout/shapes.h"
#include "layout/track_gap.h"
#include "model/money.h"
#include "model/project.h"

#include <string>

namespace pistaro {

/// "Track 1 · 24 pieces · gap 17.5 cm, 11.3° · unsaved": the chosen track, its pieces, how far it is from closing in
/// display units, rounded to the millimetre or the hundredth of an inch, and, where its ends do not point the same way,
/// by how many degrees; "closed" when both are within 0.5 mm and 0.1°; whether the circuit has changes not yet saved.
/// With all tracks chosen the pieces of all.
std::string StatusText(const Catalogue& catalogue, const Project& project);

/// Whether neither distance nor angle of a gap can be seen.
bool IsClosed(const TrackGap& gap);

/// "gap 17.5 cm, 11.3°", or "closed".
std::string GapText(const TrackGap& gap, const Units& units);

/// "lanes 560.20 and 487.10 cm as built · price 43.50 € · 3 to buy: 7.50 €, 1 without a price": what the chosen track,
/// or all, comes to; empty where there are no pieces. To the cent; what has no price is counted beside each sum.
std::string FiguresText(const Catalogue& catalogue, const Project& project, const MoneyMarks& marks = {});

/// "12.3, -4.5 cm · view 320 cm": a place of the drawing and how much of the world it shows.
std::string PlaceText(const Project& project, WorldPoint place);

} // namespace pistaro

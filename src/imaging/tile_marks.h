// What tells tiles of paper apart, how they are cut, and which one lies beside which.
#pragma once

#include "imaging/paper_page.h"
#include "paper/sheets.h"

#include <string>
#include <vector>

namespace pistaro {

/// A tile's edge on an overview with its name across its middle, for a drawing of lines to lie upon.
void DrawTileBehind(PaperPage& page, const Box& tile, const std::string& name);

/// A tile's edge on an overview with its name in a corner where it hides none of the numbers, nor pieces where there
/// is such a one; both readable upon areas of any colour by a rim of their own.
void DrawTileUpon(PaperPage& page, const Box& tile, const std::string& name, const std::vector<Box>& numbers,
                  const std::vector<Box>& pieces);

/// A tile's name above its drawing, as large as the strip takes it. Gives how wide it is.
double DrawTileTitle(PaperPage& page, const Box& strip, const std::string& name);

/// A tile's name, large and pale, for its drawing to lie upon.
void DrawTileName(PaperPage& page, const SheetPlan& plan, const std::string& name);

/// Marks and lines to cut a tile at, and the names of its neighbours at its edges, where they hide neither strokes nor
/// numbers (boxes of the world) if there is such a place.
void DrawTileEdges(PaperPage& page, const SheetPlan& plan, const Sheet& sheet, const CircuitDrawing& drawing,
                   const std::vector<Box>& numbers);

} // namespace pistaro

// The columns at both sides of the drawing: which are shown, and folding one of them.
#pragma once

#include "commands/session.h"

namespace pistaro {

/// Looks::PieceColumn or Looks::TrackColumn.
using SideColumnLook = bool Looks::*;

/// On a screen that has room for one of them it is that of the pieces, if both are wanted.
bool IsColumnShown(const Session& session, SideColumnLook column);

/// Folds a column away that is shown, and unfolds one that is not; the other one stays as it is, if it has room.
void FoldColumn(Session& session, SideColumnLook column);

/// Unfolds the column of the pieces for what is to be seen there.
void ShowPieceColumn(Session& session);

} // namespace pistaro

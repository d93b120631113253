// Small pictures of pieces for their buttons, drawn by the routines that draw the circuit.
#pragma once

#include "catalogue/catalogue.h"

#include <QIcon>

namespace pistaro {

inline constexpr int PieceIconSide = 46; ///< device-independent pixels

/// The piece in the middle of a square, all pieces to the scale at which the largest basic piece fills it. Drawn anew
/// for every size, screen and colour scheme that asks for it.
QIcon PieceIcon(const CatalogueEntry& piece, const Catalogue& catalogue);

} // namespace pistaro

// What there is to know of a piece of the drawing, in a few lines.
#pragma once

#include "editor/picking.h"
#include "model/money.h"
#include "model/project.h"

#include <string>

namespace pistaro {

/// Code and name, track and index, lane lengths by the catalogue, price, and whether the owned pieces cover it: one
/// line each.
std::string PieceTip(const Catalogue& catalogue, const Project& project, const PieceAddress& piece,
                     const MoneyMarks& marks = {});

} // namespace pistaro

// What makes a circuit impossible from the outset.
#pragma once

#include "search/laying.h"

#include <string>

namespace pistaro {

/// "The curves of the box turn by 225° in all, and a circuit turns by 360°.": why no circuit whatever can be found,
/// and this is certain; empty where there may be one. The room has walls.
std::string WhyNoCircuit(const Catalogue& catalogue, const LayingTask& task);

/// What keeps pieces of both systems in one box from coming together in a circuit; empty where nothing does.
std::string WhySystemsStayApart(const Catalogue& catalogue, const PieceBox& box);

} // namespace pistaro

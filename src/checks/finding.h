// What a check has found.
#pragma once

#include "model/circuit.h"

#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

enum class Severity {
    Error,   ///< it cannot be built or driven so
    Warning, ///< it can, but not as most would want it
    Advice,  ///< it could be better
};

/// "error", "warning", "advice"
std::string_view NameOf(Severity severity);

struct Finding {
    std::string_view Rule; ///< its id, which lives as long as the program
    pistaro::Severity Severity = pistaro::Severity::Error;
    int Track = 0;           ///< 0..2
    std::vector<int> Pieces; ///< of that track, in their order; of a whole track its first and perhaps its last
    std::string Text;        ///< a sentence with figures
    std::vector<PieceAddress> Others = {}; ///< pieces of another track that take part
    double SharedArea = 0;                 ///< of pieces that overlap, cm²

    bool operator==(const Finding&) const = default;
};

/// Those of its track in their order, then the others.
std::vector<PieceAddress> PiecesOf(const Finding& finding);

/// Of two pieces that overlap the one that is told second.
PieceAddress SecondOf(const Finding& overlap);

} // namespace pistaro

// The pieces that rules single out by their codes: the one between both systems, and those that make up a chicane.
#pragma once

#include <string_view>

namespace pistaro {

/// Whether the piece joins Scalextric track to Ninco track.
constexpr bool IsConversionPiece(std::string_view code) { return code == "N10110"; }

/// Whether the piece opens or closes a chicane: it leads the lanes together, or apart again.
constexpr bool IsChicane(std::string_view code) { return code == "C8007"; }

/// Whether the piece keeps the lanes together, so that it belongs between two chicanes.
constexpr bool IsChicaneExtension(std::string_view code) {
    return code == "C8009" || code == "C8010L" || code == "C8010R";
}

} // namespace pistaro

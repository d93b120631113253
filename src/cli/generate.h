// Circuits from a box of pieces, on the command line.
#pragma once

#include "cli/verbs.h"
#include "commands/laying_commands.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pistaro {

/// "400x300": whole numbers of 1 to 30000 cm; nothing for any other text.
std::optional<Area> AreaOf(std::string_view text);

struct GenerateOptions {
    OptionalPath RoomOf; ///< a circuit file whose room is taken; else the area is the room
    pistaro::Area Area;
    bool IsOwned = false; ///< what is owned is the box; else these pieces
    std::string Pieces;   ///< product codes with counts
    std::uint64_t Seed = 1;
    int Count = 10;
    std::optional<double> Seconds; ///< after which it ends with what it has
    std::filesystem::path Out;     ///< a folder that is empty, or not there yet
};

/// Writes circuits into a folder and prints a JSON line for each, best first. Faults: no room, no pieces, a folder that
/// holds something, and where there is no circuit at all.
void GenerateVerb(const VerbContext& context, const GenerateOptions& options);

} // namespace pistaro

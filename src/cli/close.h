// Closings on the command line.
#pragma once

#include "cli/verbs.h"
#include "search/closing.h"

namespace pistaro {

/// Prints the closings of a track, 0..2, one JSON line each, best first. Where there is none the standard error tells
/// why.
void CloseVerb(const VerbContext& context, const std::filesystem::path& circuit, int track,
               const ClosingOptions& options);

} // namespace pistaro

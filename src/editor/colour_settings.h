// The colour dialog's work.
#pragma once

#include "model/project.h"
#include "model/prompts.h"

namespace pistaro {

/// Draws with these colours from now on; the settings file keeps its own.
void ApplyColours(Project& project, const ColourScheme& colours);

/// Writes these colours as the user's defaults into the settings file; the drawing keeps its own. A file without a
/// colour section stays as it is. Faults of writing leave the file as it was.
void SaveColours(const Project& project, const ColourScheme& colours, Prompts& prompts);

} // namespace pistaro

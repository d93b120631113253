// The colour dialog's Save.
#pragma once

#include "catalogue/catalogue.h"
#include "model/colour_scheme.h"
#include "model/prompts.h"

#include <filesystem>

namespace pistaro {

/// Writes these colours as the user's defaults into the settings file; the drawing keeps its own. A file without a
/// colour section stays as it is. Faults of writing leave the file as it was.
void SaveColours(const Catalogue& catalogue, const std::filesystem::path& settingsPath, const ColourScheme& colours,
                 Prompts& prompts);

} // namespace pistaro

#include "editor/colour_settings.h"

#include "storage/settings_sections.h"

namespace pistaro {

void SaveColours(const Catalogue& catalogue, const std::filesystem::path& settingsPath, const ColourScheme& colours,
                 Prompts& prompts) {
    RewriteSettings(catalogue, settingsPath, {ColoursOf(colours)});
    prompts.Tell({Icon::Information, SettingsSaved});
}

} // namespace pistaro

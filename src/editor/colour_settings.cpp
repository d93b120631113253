// Applying and saving are two things: trying colours out, and keeping them.
#include "editor/colour_settings.h"

#include "storage/settings_sections.h"

namespace pistaro {

void ApplyColours(Project& project, const ColourScheme& colours) { project.Colours = colours; }

void SaveColours(const Project& project, const ColourScheme& colours, Prompts& prompts) {
    RewriteSettings(project.SettingsPath, {ColoursOf(colours)});
    prompts.Tell({Icon::Information, SettingsSaved});
}

} // namespace pistaro

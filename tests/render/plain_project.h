// Projects to draw, without what a test does not look at.
#pragma once

#include "support/chain.h"
#include "support/recording_surface.h"

#include <string>

namespace pistaro {

/// Without grid and room, in colours that the record tells apart.
inline Project PlainProject(const std::string& track1 = "", const std::string& track2 = "",
                            const std::string& track3 = "") {
    Project project = ProjectOf(track1, track2, track3);
    project.Preferences.Colours = DistinctColours();
    project.Preferences.Grid.Type = 0;
    return project;
}

inline void SetView(Project& project, float midX, float midY, float width) {
    project.Design.View.MidX = midX;
    project.Design.View.MidY = midY;
    project.Design.View.Width = width;
}

} // namespace pistaro

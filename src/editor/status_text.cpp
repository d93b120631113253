// What says nothing is left out.
#include "editor/status_text.h"

#include "render/track_gap.h"

namespace pistaro {

namespace {

std::string PieceCount(std::size_t pieces) {
    return pieces == 0 ? "empty" : pieces == 1 ? "1 piece" : std::to_string(pieces) + " pieces";
}

} // namespace

std::string StatusText(const Project& project) {
    const std::string between = " · ";
    std::string text;
    if (const Track* const track = project.Layout.Current()) {
        text = "Track " + std::to_string(project.Layout.CurrentTrack + 1) + between;
        text += PieceCount(track->ElementCodes.size());
        if (!track->ElementCodes.empty()) {
            const std::string gap = LengthLabel(GapOf(*track).Distance, project.DisplayUnits);
            text += between + "gap " + (gap.starts_with('.') ? "0" : "") + gap + " " + project.DisplayUnits.Name();
        }
    } else {
        std::size_t pieces = 0;
        for (const Track& each : project.Layout.Tracks)
            pieces += each.ElementCodes.size();
        text = "All tracks" + between + PieceCount(pieces);
    }
    if (project.InsertMode && project.Layout.Current() != nullptr) text += between + "Insert mode";
    return project.DataChanged ? text + between + "unsaved" : text;
}

} // namespace pistaro

#include "model/edit_state.h"

#include "platform/files.h"
#include "text/utf8.h"

#include <algorithm>

namespace pistaro {

int EditState::SelectedElement() const {
    return ShowsAllTracks() ? -1 : CurrentElement[static_cast<std::size_t>(CurrentTrack)];
}

const Track* EditedTrack(const Circuit& circuit, const EditState& edit) {
    return edit.ShowsAllTracks() ? nullptr : &circuit.Tracks[static_cast<std::size_t>(edit.CurrentTrack)];
}

Track* EditedTrack(Circuit& circuit, const EditState& edit) {
    return edit.ShowsAllTracks() ? nullptr : &circuit.Tracks[static_cast<std::size_t>(edit.CurrentTrack)];
}

std::string SelectedCode(const Circuit& circuit, const EditState& edit) {
    const int selected = edit.SelectedElement();
    return selected < 0 ? std::string() : EditedTrack(circuit, edit)->ElementCodes[static_cast<std::size_t>(selected)];
}

std::string NameFromTitle(const std::string& title) {
    constexpr std::size_t ending = 4; // that of ".trk"
    return std::string(WithoutLastCharacters(title, ending));
}

std::string ProjectName(const EditState& edit) {
    if (edit.File.empty()) return edit.Name.empty() ? NewProjectName : edit.Name;
    const std::string path = TextFromPath(edit.File);
    return NameFromTitle({std::find_if(path.rbegin(), path.rend(), IsFolderSeparator).base(), path.end()});
}

std::string Caption(const EditState& edit) { return "Pistaro - " + ProjectName(edit); }

} // namespace pistaro

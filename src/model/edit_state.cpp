#include "model/edit_state.h"

#include <algorithm>
#include <cstdlib>

#include "model/working_directory.h"
#include "platform/files.h"
#include "text/utf8.h"

namespace pistaro {

int EditState::SelectedElement() const {
    return ShowsAllTracks() ? -1 : CurrentElement[static_cast<std::size_t>(CurrentTrack)];
}

ElementRun EditState::SelectedRun(int last) const {
    const int selected = SelectedElement();
    if (selected < 0 || selected > last) return {};
    const int other = AndAllAfter ? last : RunFrom >= 0 ? std::min(RunFrom, last) : selected;
    return {std::min(selected, other), std::abs(selected - other) + 1};
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
    return NameFromTitle(SplitPath(TextFromPath(edit.File)).Title);
}

std::string Caption(const EditState& edit) { return "Pistaro - " + ProjectName(edit); }

} // namespace pistaro

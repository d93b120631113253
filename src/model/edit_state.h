// What a person is doing to a design.
#pragma once

#include "catalogue/catalogue.h"
#include "model/circuit.h"

#include <filesystem>
#include <string>

namespace pistaro {

inline constexpr const char* NewProjectName = "new project";

/// Neighbouring elements of a track.
struct ElementRun {
    int First = 0, Count = 0;

    bool operator==(const ElementRun&) const = default;
};

struct EditState {
    int CurrentTrack = 0;                                   ///< 0..2, or AllTracks
    std::array<int, TrackCount> CurrentElement{-1, -1, -1}; ///< each track's selected element, -1 when there is none
    TrackSystem System = TrackSystem::Scalextric;           ///< whose pieces are offered
    bool AndAllAfter = false;                               ///< the selection reaches on to the track's last element
    int RunFrom = -1;                                       ///< where the run begins that the selected element ends
    bool InsertMode = false;                                ///< new pieces go before the selected element
    bool ShowNumbers = false;                               ///< element numbers are drawn
    bool DataChanged = false;                               ///< the circuit has changes not yet saved
    std::filesystem::path File; ///< that the circuit came from or was saved to; empty for a new one
    std::string Name;           ///< of work that has no file: as a sample, a variation and recovered work may

    bool ShowsAllTracks() const { return CurrentTrack == AllTracks; }

    /// The current track's selected element, -1 when there is none or all tracks are chosen.
    int SelectedElement() const;

    /// Selects an element of the current track, which must be a single one.
    void Select(int element) {
        CurrentElement[static_cast<std::size_t>(CurrentTrack)] = element;
        SelectItAlone();
    }

    /// Lets go of what was selected beside the selected element.
    void SelectItAlone() {
        AndAllAfter = false;
        RunFrom = -1;
    }

    /// The selected elements of the current track, `last` being its last one: the selected one, with those to the other
    /// end of the run or to the track's end. None where none is selected.
    ElementRun SelectedRun(int last) const;

    bool operator==(const EditState&) const = default;
};

/// The track being edited; null when all are chosen.
const Track* EditedTrack(const Circuit& circuit, const EditState& edit);
Track* EditedTrack(Circuit& circuit, const EditState& edit);

/// The code of the current track's selected element; empty when there is none.
std::string SelectedCode(const Circuit& circuit, const EditState& edit);

/// The project's name by its file's title: without the last four characters, whatever they are.
std::string NameFromTitle(const std::string& title);

/// The name of the project: its file's, else its own, else NewProjectName.
std::string ProjectName(const EditState& edit);

/// The main window's caption: the program's and the project's name.
std::string Caption(const EditState& edit);

} // namespace pistaro

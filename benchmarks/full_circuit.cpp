// Laps of a real circuit, so that kinds and directions are mixed as they are in a user's.
#include "full_circuit.h"

#include "editor/circuit_files.h"
#include "storage/settings_file.h"

namespace pistaro {

const Catalogue& Pieces() {
    static const Catalogue catalogue = InitCatalogue();
    return catalogue;
}

Project FullCircuit() {
    Project project = StartUp(InitialSettings(Pieces()));
    LoadCircuit(project, SAMPLES_FOLDER "/grand-prix.trk");
    const Track lap = project.Design.Circuit.Tracks[0];
    float shift = 0;
    for (Track& track : project.Design.Circuit.Tracks) {
        track = lap;
        track.TrackStartY += shift;
        shift += TrackSpacing;
        while (track.ElementCodes.size() < MaxElements)
            track.ElementCodes.push_back(lap.ElementCodes[track.ElementCodes.size() % lap.ElementCodes.size()]);
    }
    project.EditState.CurrentElement[0] = 250;
    project.EditState.ShowNumbers = true;
    project.Preferences.Grid = {.Type = static_cast<std::int16_t>(GridType::Dots), .Step = 10};
    return project;
}

} // namespace pistaro

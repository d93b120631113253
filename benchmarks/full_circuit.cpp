// Laps of a real circuit, so that kinds and directions are mixed as they are in a user's.
#include "full_circuit.h"

#include "editor/circuit_commands.h"
#include "storage/settings_file.h"

namespace pistaro {

Project FullCircuit() {
    Project project = StartUp(InitialSettings());
    LoadCircuit(project, SAMPLES_FOLDER "/grand-prix.trk");
    const Track lap = project.Layout.Tracks[0];
    float shift = 0;
    for (Track& track : project.Layout.Tracks) {
        track = lap;
        track.TrackStartY += shift;
        shift += TrackSpacing;
        while (track.ElementCodes.size() < MaxElements)
            track.ElementCodes.push_back(lap.ElementCodes[track.ElementCodes.size() % lap.ElementCodes.size()]);
    }
    project.Layout.Tracks[0].CurrentElement = 250;
    project.ShowNumbers = true;
    project.Grid = {.Type = static_cast<std::int16_t>(GridType::Dots), .Step = 10};
    return project;
}

} // namespace pistaro

#include "model/project.h"

namespace pistaro {

Project StartUp(const Settings& settings) {
    Project project;
    project.Design.View =
        ViewAround(settings.MidX, settings.MidY, static_cast<float>(settings.Zoom), settings.Preferences.MWid);
    project.Design.Room = settings.Room;
    project.Stock = settings.Stock;
    project.Preferences = settings.Preferences;
    return project;
}

void NewProject(Project& project) {
    Circuit empty = EmptyCircuit();
    for (std::size_t track = 0; track < empty.Tracks.size(); ++track)
        empty.Tracks[track].TrackStartY = project.Design.Circuit.Tracks[track].TrackStartY;
    project.Design.Circuit = std::move(empty);
    project.Design.View = ViewAround(0, 0, ViewSettings().Width, project.Preferences.MWid);

    project.Background.reset();

    const EditState fresh;
    project.EditState.CurrentTrack = fresh.CurrentTrack;
    project.EditState.CurrentElement = fresh.CurrentElement;
    project.EditState.SelectItAlone();
    project.EditState.DataChanged = false;
    project.EditState.File.clear();
    project.EditState.Name.clear();
}

} // namespace pistaro

// Starting up and starting anew.
#include "model/project.h"

namespace pistaro {

std::string Caption(const Project& project) { return "Pistaro - " + project.Name; }

void ApplyStock(Catalogue& catalogue, const Settings& settings) {
    for (std::size_t row = 0; row < settings.Stocks.size(); ++row) {
        catalogue[row].OwnedCount = settings.Stocks[row].Owned;
        catalogue[row].Price = settings.Stocks[row].Price;
    }
}

Project StartUp(const Settings& settings) {
    Project project;
    project.WorkingDirectory = settings.WorkingDirectory;
    project.View = {.MidX = settings.MidX,
                    .MidY = settings.MidY,
                    .Width = static_cast<float>(settings.Zoom),
                    .MWid = settings.MWid,
                    .HMov = BarAround(settings.MidX, settings.MWid, settings.MidX),
                    .VMov = BarAround(settings.MidY, settings.MWid, settings.MidY)};
    project.Room = settings.Room;
    project.Colours = settings.Colours;
    project.Grid = settings.Grid;
    project.DisplayUnits = settings.DisplayUnits;
    ApplyStock(project.Pieces, settings);
    return project;
}

void NewProject(Project& project) {
    for (Track& track : project.Layout.Tracks) {
        track.ElementCodes.clear();
        track.CurrentElement = -1;
        track.TrackStartHeading = 0;
    }
    const Circuit empty = EmptyCircuit();
    for (std::size_t track = 0; track < empty.Tracks.size(); ++track) {
        project.Layout.Tracks[track].TrackStartX = empty.Tracks[track].TrackStartX;
    }
    project.Layout.CurrentTrack = 0;
    for (CatalogueEntry& entry : project.Pieces) {
        entry.UsedCount = 0;
    }

    const ViewSettings fresh;
    ViewSettings& view = project.View;
    view.MidX = fresh.MidX;
    view.MidY = fresh.MidY;
    view.Width = fresh.Width;
    view.HMov.Value = Middle(view.HMov);
    view.VMov.Value = Middle(view.VMov);
    project.Name = NewProjectName;
    project.DataChanged = false;
}

} // namespace pistaro

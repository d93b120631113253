// All the data there is, as one plain value: a copy of it can be drawn in another way while the design stays.
#pragma once

#include "catalogue/catalogue.h"
#include "model/circuit.h"
#include "model/settings.h"

#include <filesystem>
#include <string>

namespace pistaro {

inline constexpr const char* NewProjectName = "new project";

struct Project {
    Catalogue Pieces = InitCatalogue();
    Circuit Layout = EmptyCircuit();
    ViewSettings View;
    RoomPolygon Room;
    ColourScheme Colours;
    GridSettings Grid;
    Units DisplayUnits;
    std::string Name = NewProjectName;
    std::string WorkingDirectory;                 ///< ends in a folder separator
    std::filesystem::path SettingsPath;           ///< empty: there is no settings file to write
    TrackSystem System = TrackSystem::Scalextric; ///< whose pieces are offered
    bool InsertMode = false;                      ///< new pieces go before the selected element
    bool DataChanged = false;                     ///< the circuit has changes not yet saved
    bool ShowNumbers = false;                     ///< element numbers are drawn
};

/// The main window's caption: the program's and the project's name.
std::string Caption(const Project& project);

/// A project as the program starts with it: three empty tracks, the settings' view, room, colours and stock.
Project StartUp(const Settings& settings);

/// Puts the owned counts and prices of the settings into the catalogue's head rows.
void ApplyStock(Catalogue& catalogue, const Settings& settings);

/// Empties the circuit and brings back the default view of 320 x 320 cm. The start points' Y, the room, the track
/// system and Insert mode stay.
void NewProject(Project& project);

} // namespace pistaro

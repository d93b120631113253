// The draw-area dialog's work: its fields as they are typed, their validation, and where Apply and Save put them.
#pragma once

#include "editor/room_points.h"
#include "model/project.h"
#include "model/prompts.h"

#include <filesystem>
#include <optional>
#include <string>

namespace pistaro {

/// The fields as they are typed; lengths are always centimetres, whatever the units.
struct DrawAreaFields {
    std::string CentreX, CentreY; ///< where the scroll bars have their middle
    std::string ZoomVal;          ///< the window's width and height
    std::string MaxWidth;         ///< how far the scroll bars reach from the centre
    std::string RoomAngle;        ///< degrees
    std::string Step;             ///< of the grid, display units
    std::string Currency;
    int Grid = 0;        ///< the chosen grid type; one that no button stands for stays as it is
    bool Inches = false; ///< the chosen units
    RoomPoints Room;
};

/// The fields as the dialog opens with them: the values in use, the angle to a thousandth of a degree, so that the
/// seven digits which files keep do not turn 90 degrees into 89.
DrawAreaFields OpenDrawArea(const Design& design, const Preferences& preferences);

/// "Area: W x W cm" in the chosen units, for the window width as it is typed.
std::string DrawAreaLabel(const DrawAreaFields& fields);

/// The room as it stands in the dialog, its angle snapped down to a multiple of 22.5 degrees.
RoomPolygon RoomIn(const DrawAreaFields& fields);

/// Brings the fields into their normal form, whole numbers, and tells what is wrong with the first that is; nothing
/// when all are well. Fault at a number that is not finite.
std::optional<Message> ValidateDrawArea(DrawAreaFields& fields);

/// Puts valid fields into the circuit: view, scroll bars, room, grid, units, currency. False when the validation told
/// something, or the user would rather add a point that was only typed: the dialog stays open then. Faults at values
/// that no settings file could hold; nothing changes then.
bool ApplyDrawArea(Project& project, DrawAreaFields& fields, Prompts& prompts);

/// The same after writing the values as the user's defaults into the settings file. Faults of writing leave file and
/// project as they were.
bool SaveDrawArea(const Catalogue& catalogue, Project& project, const std::filesystem::path& settingsPath,
                  DrawAreaFields& fields, Prompts& prompts);

/// Tells what the dialog's fields and buttons are for.
void ExplainDrawArea(Prompts& prompts);

} // namespace pistaro

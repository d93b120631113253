// The dialogs' work in a script: each command fills a dialog's fields and presses one of its buttons.
#pragma once

#include "cli/script_words.h"
#include "editor/room_points.h"
#include "model/project.h"
#include "model/prompts.h"

#include <optional>
#include <ostream>
#include <vector>

namespace pistaro {

/// What the dialogs work on. Their messages are printed, one JSON line each.
struct ScriptDialogs {
    Project& Design;
    std::ostream& Output;
    std::vector<Message> Warnings;  ///< that reading the settings gave
    std::optional<RoomPoints> Room; ///< the draw-area dialog's copy once a point of it was changed
};

/// Refuses the line unless a settings file was named that the dialogs may write.
void RequireSettingsFile(const ScriptDialogs& dialogs);

/// colours NAME=VALUE ... apply|save
void RunColours(ScriptDialogs& dialogs, const Words& words);

/// stock CODE=COUNT|CODE=COUNT@PRICE ... save
void RunStock(ScriptDialogs& dialogs, const Words& words);

/// area NAME=VALUE ... apply|save; an "Illegal ..." message is no refusal, the values are just not taken.
void RunArea(ScriptDialogs& dialogs, const Words& words);

/// room add X Y 0|1, room set N X Y 0|1, room delete N
void RunRoom(ScriptDialogs& dialogs, const Words& words);

/// settings: the values as they stand in the program, as JSON
void PrintSettings(ScriptDialogs& dialogs, const Words& words);

} // namespace pistaro

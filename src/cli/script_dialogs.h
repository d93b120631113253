// The dialogs' work in a script: each command fills a dialog's fields and presses one of its buttons.
#pragma once

#include "cli/script_prompts.h"
#include "cli/script_words.h"
#include "commands/session.h"
#include "editor/room_points.h"

#include <optional>
#include <ostream>
#include <vector>

namespace pistaro {

/// What a script's commands work on. The dialogs' messages are printed, one JSON line each.
struct Script {
    pistaro::Session& Session;
    ScriptPrompts& Prompts;
    std::ostream& Output;
    const std::vector<Message>& Warnings;      ///< that reading the settings gave
    const std::filesystem::path& SettingsFile; ///< that was read, or would be
    std::optional<RoomPoints> Room;            ///< the draw-area dialog's copy once a point of it was changed
};

/// colours NAME=VALUE ... apply|save
void RunColours(Script& script, const Words& words);

/// stock CODE=COUNT|CODE=COUNT@PRICE ... save
void RunStock(Script& script, const Words& words);

/// area NAME=VALUE ... apply|save; an "Illegal ..." message is no refusal, the values are just not taken.
void RunArea(Script& script, const Words& words);

/// room add X Y 0|1, room set N X Y 0|1, room delete N
void RunRoom(Script& script, const Words& words);

/// settings: the values as they stand in the program, as JSON
void PrintSettings(Script& script, const Words& words);

} // namespace pistaro

// Editing commands from a text, one a line, run through the same functions as the window's controls.
#pragma once

#include "cli/script_prompts.h"
#include "cli/start.h"
#include "commands/session.h"

#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace pistaro {

/// Runs every line of `script` in the session, whose prompts are `prompts`, and prints what they ask for. A refused
/// line is a fault that names `name` and the line's number; what earlier lines did and printed stays. `start` is what
/// the session began with.
void RunScript(Session& session, ScriptPrompts& prompts, std::istream& script, const std::string& name,
               std::ostream& output, const VerbStart& start);

} // namespace pistaro

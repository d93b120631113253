// Building that no row of the table stands for: what the menu of the selected piece does with any piece of its shape.
#pragma once

#include <string>

namespace pistaro {

class Session;

/// Puts a piece before the selected element, as often as the digit typed says. Fault when the track has no room for
/// it; nothing changes then.
void InsertBeforeCommand(Session& session, const std::string& code);

} // namespace pistaro

// Commands that close the current track.
#pragma once

#include "commands/session.h"
#include "search/closing.h"

namespace pistaro {

/// Lays one of the suggestions that close the current track, by its number from 1, and selects the last piece laid.
/// Fault "Refused" where there is none of that number.
void LaySuggestion(Session& session, int number);

/// The same for a suggestion at hand.
void LaySuggestion(Session& session, const Suggestion& suggestion);

} // namespace pistaro

// What the window of circuits says of a search.
#pragma once

#include "commands/box_search.h"
#include "commands/laying_commands.h"

#include <QString>

namespace pistaro {

/// "The best 10 of 115 circuits found".
QString FoundText(std::size_t count, std::size_t shown);

/// Before anything was looked for.
QString IdleText(bool isBoxEmpty);

/// What was found, how the search stands, and what can be done next; `instead`, what gives more room to find some.
QString StandingText(BoxStanding standing, std::size_t count, const QString& found, const QString& instead);

/// Of circuits that were found for other wishes; `whyNot`, why those that stand at the left cannot be looked for.
QString OutdatedText(const QString& whyNot);

/// What can be done instead of looking on.
QString InsteadFor(const BoxWish& wish, bool varies);

/// What stands in the place of circuits while there are none; `rare`, why there will hardly be any; `isLate`, that the
/// usual effort found none.
QString HintFor(BoxStanding standing, const BoxWish& wish, const QString& rare, bool isLate);

} // namespace pistaro

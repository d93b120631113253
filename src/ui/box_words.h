// What the window of circuits says of a search.
#pragma once

#include "commands/box_search.h"
#include "commands/laying_commands.h"
#include "search/circuit_order.h"

#include <QString>

#include <optional>

namespace pistaro {

/// How many were found, and what of them is shown.
struct FoundCount {
    std::size_t Circuits = 0, Shown = 0;    ///< of those that were found, so many at most
    std::optional<std::size_t> Shapes = {}; ///< where one of each shape is shown
    std::size_t LikeThem = 0;               ///< others that look like one of these
    bool AreBesideOthers = false;           ///< other tracks
};

/// Of that many circuits those in this order are shown.
FoundCount CountOf(std::size_t circuits, const std::vector<RankedCircuit>& order, int shown, bool eachShape);

/// "The best 10 of 115 circuits found", "115 circuits found, of 7 shapes".
QString FoundText(const FoundCount& count);

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

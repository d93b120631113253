// Commands that close the current track, or lay other pieces in the place of some of it; and what is told of a
// suggestion.
#pragma once

#include "commands/session.h"
#include "layout/shapes.h"
#include "search/closing.h"

namespace pistaro {

/// Why the current track cannot be closed; empty when it can be tried.
std::string WhyNotClose(const Session& session);

/// The closings of the current track. Where no piece may be taken out and no closing is free of faults, as many pieces
/// may be as mend almost every track.
Closings FindClosings(const Session& session, const ClosingOptions& options);

/// What other pieces for a run shall be, beside leading to the same place.
enum class ReplacementWish {
    Any,
    Shorter, ///< both lanes together, as built
    Longer,
    Cheaper,
    LanesSwapped, ///< cars leave on the other lane than they leave on now
};

/// Other pieces for a run of the current track.
Closings FindReplacements(const Session& session, const ElementRun& run, ReplacementWish wish,
                          const ClosingOptions& options);

/// The selected elements of the current track.
ElementRun SelectedRun(const Session& session);

/// Lays one of the suggestions that close the current track, by its number from 1, and selects the last piece laid.
/// Fault "Refused" where there is none of that number.
void LaySuggestion(Session& session, int number);

/// The same for a suggestion at hand.
void LaySuggestion(Session& session, const Suggestion& suggestion);

/// "2 pieces: C160, C151L. 7.50 €; to buy: C160. Each joint gives 0.1 mm." and what is wrong with it. Of a mend what
/// it takes out stands first: "Takes out C160 (0), lays C159, C151L. 7.50 € ..."
std::string TextOf(const Session& session, const Suggestion& suggestion);

/// The same in short, three lines: "2 pieces" or "2 pieces for 1", "7.50 €", "all owned".
std::string CaptionOf(const Session& session, const Suggestion& suggestion);

/// Where a suggestion's pieces would lie in the current track.
struct GhostPlace {
    BuildCursor Start;
    std::string CodeBefore;                        ///< of the element before them; empty where there is none
    std::vector<std::vector<WorldPoint>> TakenOut; ///< the grounds of the elements in whose place they lie
    std::vector<std::string> Moved;                ///< of a mend: they and the elements behind them, as they would lie
};
GhostPlace PlaceOf(const Session& session, const Suggestion& suggestion);

} // namespace pistaro

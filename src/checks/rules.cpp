// The table of rules.
#include "checks/rules.h"

#include "checks/chicane_rules.h"
#include "checks/ground_rules.h"
#include "checks/stock_rules.h"
#include "checks/track_rules.h"

namespace pistaro {

namespace {

using enum Severity;

// clang-format off
constexpr std::array Table{
    Rule{"unknown-code", Error, "A code that is no piece of the catalogue",
         "Nothing is drawn, counted or priced for it, and the pieces behind it lie where they would without it.",
         FindUnknownCodes},
    Rule{"open-track", Error, "A track of three pieces or more that does not close",
         "Cars need a way back to the start. Real track gives a little: up to 2 cm and 3° the ends can be pressed "
         "together, beyond that the joints break or current and guide are lost.",
         FindOpenTracks},
    Rule{"unconverted-joint", Error, "A joint of two systems without the adapter",
         "Scalextric and Ninco track have different widths, slots and connectors: they do not fit into each other.",
         FindUnconvertedJoints},
    Rule{"reversed-adapter", Error, "An adapter that lies the wrong way round",
         "Each end of the adapter fits one system alone. After a Ninco piece it leads to Scalextric track, else to Ninco "
         "track.",
         FindReversedAdapters},
    Rule{"overlap", Error, "Pieces that overlap",
         "Two pieces cannot lie in one place. Only the hump back bridge may stand over another piece: one straight.",
         FindOverlaps},
    Rule{"outside-room", Error, "Pieces outside the room",
         "What reaches through a wall cannot be laid.",
         FindPiecesOutside},
    Rule{"odd-change-overs", Warning, "An odd number of change-overs",
         "After each lap every car is on the other lane. Two drivers then meet on one lane as soon as one laps the other "
         "a little faster.",
         FindOddChangeOvers},
    Rule{"chicane-partner", Warning, "A chicane without its partner",
         "A chicane leads the lanes together, and a second one leads them apart. Without it the slots do not meet.",
         FindLoneChicanes},
    Rule{"chicane-stranger", Warning, "Another piece between two chicanes",
         "Between the two chicanes the lanes lie close together. Only chicane extensions have them there.",
         FindStrangersInChicanes},
    Rule{"lanes-differ", Advice, "Lanes whose lengths differ by more than 1 %",
         "The driver on the shorter lane wins. Change-overs at the right places make both equal: see Balance Lanes.",
         FindUnequalLanes},
    Rule{"near-wall", Advice, "Pieces nearer than 5 cm to a wall",
         "Cars swing out over the edge of the track, and hands must reach them.",
         FindPiecesNearWalls},
    Rule{"near-track", Advice, "The outside of a curve nearer than 10 cm to another track",
         "Cars slide over the outer edge of a curve, and knock others off the track beside it.",
         FindSlidesIntoTracks},
    Rule{"fast-corner", Advice, "A straight run over 2.5 m into a curve of the inner radius",
         "Cars arrive at their top speed and fly off in the tightest curve there is. A wider one before it slows them.",
         FindFastCorners},
    Rule{"lap-counter", Advice, "A lap counter that is missing, or more than one on a track",
         "One counts the laps; without it nobody knows who has won, and two count every lap twice.",
         FindLapCounters},
    Rule{"start-section", Advice, "A start section that is missing, or more than one on a track",
         "All cars start from one line.",
         FindStartSections},
    Rule{"not-owned", Advice, "More pieces than are owned",
         "They must be bought before the track can be laid. This is not reported until you have entered a piece that you own.",
         FindUnownedPieces},
    Rule{"unused-special", Advice, "A special piece lies unused where a plain one of its size must be bought",
         "What is owned costs nothing: a lap counter, a bridge or rough terrain fits wherever a straight of its length "
         "does.",
         FindUnusedSpecials},
};
// clang-format on

} // namespace

std::span<const Rule> Rules() { return Table; }

} // namespace pistaro

// What the statistics warn of before they are shown. Advice only: nothing is changed.
#pragma once

#include "model/prompts.h"
#include "stats/measure.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace pistaro {

/// Owned pieces of a product less those counted in the tally of the circuit, below 0 when some are still to be bought.
/// 0 for a product that the tally does not count ("N10111"). Fault when the difference overflows.
std::int16_t RemainingOwned(const Catalogue& catalogue, const Stock& stock, const StockTally& circuit,
                            std::string_view code);

enum class DesignCheck { ChangeOvers, Chicane, SystemJoins, UnusedSpecials };

struct DesignWarning {
    DesignCheck Check;
    int Track; ///< 0..2, or AllTracks for what concerns the complete circuit
    Message Told;
};

/// For each track an odd number of change-overs, each piece that does not belong between two chicanes, and joins of
/// both systems without a converter; then special pieces that are owned, not used, and could stand for plain ones.
std::vector<DesignWarning> DesignWarnings(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit);

/// The same as the messages that the statistics show.
std::vector<Message> DesignChecks(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit);

} // namespace pistaro

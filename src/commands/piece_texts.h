// What is told of pieces and their prices in a few words.
#pragma once

#include "commands/session.h"
#include "model/money.h"

#include <string>
#include <vector>

namespace pistaro {

/// "C160, 2 × C151"
std::string Listed(const std::vector<std::string>& words);

/// "C160" for one, "2 × C160" for two.
std::string CountedPiece(const Session& session, int headRow, int count);

/// "7.50 €"; of pieces among which some have no price "7.50 € + 2 without a price".
std::string PriceText(const Session& session, Cents price, int unpriced);

/// "2 × C8006; 25.00 €": what a change to this circuit would make the user buy beyond what the design as it is lacks;
/// empty where that is nothing.
std::string MoreToBuyText(const Session& session, const Circuit& then);

} // namespace pistaro

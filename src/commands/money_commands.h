// Commands on lanes and money that ask or take long.
#pragma once

#include "commands/session.h"

namespace pistaro {

/// Proposes the fewest changes that balance the lanes of the current track, and does them when that is answered by Ok:
/// one step of undo.
void BalanceCommand(Session& session);

/// Looks for the cheapest purchase of what is missing, as a job, and tells it. The sets come from the file beside the
/// settings, if there is one.
void PurchaseCommand(Session& session);

} // namespace pistaro

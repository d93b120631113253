// Commands on lanes and money that ask or take long, and what mends findings.
#pragma once

#include "checks/balance.h"
#include "checks/mends.h"
#include "commands/session.h"

namespace pistaro {

/// Shows the fewest changes that balance the lanes of the current track, or tells why there are none.
void BalanceCommand(Session& session);

/// Does them all: the running work is one step of undo.
void BalanceTrack(Session& session, const Balance& balance);

/// Makes the circuit that of the mend and selects the first piece that is new: the running work is one step of undo.
void MendCircuit(Session& session, const Mend& mend);

/// Looks for the cheapest purchase of what is missing, as a job, and shows it. The sets come from the file beside the
/// settings, if there is one.
void PurchaseCommand(Session& session);

} // namespace pistaro

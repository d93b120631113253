// What can be done with unsaved work that was found.
#pragma once

#include "commands/session.h"
#include "storage/recovery_file.h"

namespace pistaro {

/// Goes on with a work: it takes the place of the design, after Load's question, and is unsaved as it was. Gives
/// whether it was done. Fault where its file cannot be read.
bool OpenRecovered(Session& session, const RecoveredWork& work);

/// Asks for a file and copies a work there, after a question over one that exists. Gives whether it was done.
bool CopyRecovered(Session& session, const RecoveredWork& work);

/// Asks, and removes a work for good. Gives whether it was done.
bool DeleteRecovered(Session& session, const RecoveredWork& work);

} // namespace pistaro

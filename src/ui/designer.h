// The designer from its first window to its last.
#pragma once

#include "catalogue/catalogue.h"
#include "editor/start_up.h"
#include "model/prompts.h"

#include <vector>

namespace pistaro {

class frmCorvel;
class Recovery;
class Session;

/// Shows the main window, behind the opening window where there is one; when it is shown, tells what the start has to
/// tell, opens the circuit that is named, and shows unsaved work that a program left behind.
void BeginDesigning(frmCorvel& window, Session& session, const std::vector<Message>& messages,
                    const DesignerOptions& options);

/// Puts unsaved work on disk before the desktop ends, and asks what Quit asks where there is time to ask. False when
/// the user stays.
bool LetsLogOff(frmCorvel& window, Recovery& recovery, bool mayAsk);

/// Gives the program's exit status.
int RunDesigner(int argc, char** argv, const Catalogue& catalogue, const DesignerOptions& options);

} // namespace pistaro

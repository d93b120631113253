// The designer from its first window to its last.
#pragma once

#include "catalogue/catalogue.h"
#include "model/prompts.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace pistaro {

class frmCorvel;
class Session;

struct DesignerFiles {
    std::filesystem::path SettingsFile;
    std::optional<std::filesystem::path> Circuit; ///< opened at the start
    bool NoSplash = false;                        ///< without the opening window
};

/// Shows the main window, behind the opening window where there is one; when it is shown, tells what the start has to
/// tell, opens the circuit that is named, and shows unsaved work that a program left behind.
void BeginDesigning(frmCorvel& window, Session& session, const std::vector<Message>& messages,
                    const DesignerFiles& files);

/// Gives the program's exit status.
int RunDesigner(int argc, char** argv, const Catalogue& catalogue, const DesignerFiles& files);

} // namespace pistaro

// Runs what the user asks for: contains its faults, and notifies once when it is done.
#pragma once

#include "editor/commands.h"

#include <functional>

namespace pistaro {

/// Runs what may fault; a fault is told with an exclamation icon and ends it there. Gives whether it came to its end.
/// Every handler that can fault and is not run by the workbench runs its work through this.
bool Contained(Prompts& prompts, const std::function<void()>& work);

class Workbench {
public:
    Workbench(Project& project, Prompts& prompts) : Design(project), Words(prompts) {}

    Project& Design;
    Prompts& Words;
    std::function<void()> Changed; ///< called once after each piece of work, done or faulted

    /// Runs a row of the command table, unless it cannot be done now.
    bool Run(const Command& command);

    /// The same for work that is no row.
    bool Do(const std::function<void()>& work);
};

} // namespace pistaro

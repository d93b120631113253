// The one place where faults of commands are caught.
#include "ui/workbench.h"

namespace pistaro {

bool Contained(Prompts& prompts, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::exception& fault) {
        prompts.Tell({Icon::Exclamation, fault.what()});
        return false;
    }
}

bool Workbench::Run(const Command& command) {
    if (!command.WhyNot(Design).empty()) return false;
    return Do([&] { command.Run(Design, Words); });
}

bool Workbench::Do(const std::function<void()>& work) {
    const bool done = Contained(Words, work);
    if (Changed) Changed();
    return done;
}

} // namespace pistaro

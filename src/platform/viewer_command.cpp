// Text handling alone, so that it is the same and tested everywhere.
#include "platform/viewer_command.h"

#include <algorithm>

namespace pistaro {

namespace {

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

std::string ProgramOfCommand(std::string command) {
    std::ranges::replace(command, '"', ' ');
    return Trimmed(command.substr(0, command.rfind('%')));
}

std::string CutAtDash(const std::string& command) { return Trimmed(command.substr(0, command.find('-'))); }

} // namespace pistaro

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

std::string QuotedProgram(const std::string& command, const std::function<bool(const std::string&)>& isFile) {
    const auto parted = [&](std::size_t end) {
        const std::string program = command.substr(0, end);
        return (program.find(' ') == std::string::npos ? program : '"' + program + '"') + command.substr(end);
    };
    for (std::size_t end = command.size(); end != std::string::npos && end > 0; end = command.rfind(' ', end - 1)) {
        if (isFile(command.substr(0, end))) return parted(end);
    }
    return command.find_first_of("\\/") < command.find(' ') ? parted(command.size()) : command;
}

std::string CutAtDash(const std::string& command) { return Trimmed(command.substr(0, command.find('-'))); }

} // namespace pistaro

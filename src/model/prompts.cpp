#include "model/prompts.h"

#include "platform/files.h"

namespace pistaro {

void Prompts::TellWritten(const std::filesystem::path& file, const std::string& more) {
    Tell({Icon::Information, WrittenText(file, more)});
}

std::string WrittenText(const std::filesystem::path& file, const std::string& more) {
    return TextFromPath(file) + " is written." + (more.empty() ? "" : "\n\n" + more);
}

} // namespace pistaro

#include "model/prompts.h"

#include "platform/files.h"

namespace pistaro {

void Prompts::TellWritten(const std::filesystem::path& file, const std::string& more) {
    Tell({Icon::Information, WrittenText(file, more)});
}

Answer Prompts::AskWhether(const std::string& question, const std::string&) { return Ask(question, Buttons::OkCancel); }

std::string WrittenText(const std::filesystem::path& file, const std::string& more) {
    return TextFromPath(file) + " is written." + (more.empty() ? "" : "\n\n" + more);
}

} // namespace pistaro

#include "model/prompts.h"

#include "platform/files.h"

namespace pistaro {

void Prompts::TellWritten(const std::filesystem::path& file) {
    Tell({Icon::Information, TextFromPath(file) + " is written."});
}

} // namespace pistaro

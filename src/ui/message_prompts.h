// Words to the user as message boxes and file dialogs.
#pragma once

#include "model/prompts.h"

#include <functional>

namespace pistaro {

/// Its boxes belong to the window in which the user is working.
class MessagePrompts : public Prompts {
public:
    MessagePrompts();

    void Tell(const Message& message) override;
    /// With a button that opens its folder.
    void TellWritten(const std::filesystem::path& file, const std::string& more) override;
    Answer Ask(const std::string& question, Buttons buttons) override;
    Answer AskWhether(const std::string& question, const std::string& action) override;

    /// A file to be saved gets the first ending of the filter where it has none of the filter's.
    std::optional<std::filesystem::path> ChooseFile(const FileChoice& choice) override;

    /// Shows a folder as the desktop does.
    std::function<void(const std::filesystem::path& folder)> OpenFolder;
};

} // namespace pistaro

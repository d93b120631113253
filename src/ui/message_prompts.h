// Words to the user as message boxes and file dialogs.
#pragma once

#include "model/prompts.h"

namespace pistaro {

/// Its boxes belong to the window in which the user is working.
class MessagePrompts : public Prompts {
public:
    void Tell(const Message& message) override;
    Answer Ask(const std::string& question, Buttons buttons) override;

    /// A file to be saved gets the first ending of the filter where it has none of the filter's.
    std::optional<std::filesystem::path> ChooseFile(const FileChoice& choice) override;
};

} // namespace pistaro

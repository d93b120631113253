// A user whom nobody asks anything.
#pragma once

#include "model/prompts.h"

#include <stdexcept>

namespace pistaro {

class NoPrompts : public Prompts {
public:
    void Tell(const Message& message) override { throw std::logic_error(message.Text); }
    Answer Ask(const std::string& question, Buttons) override { throw std::logic_error(question); }
    std::optional<std::filesystem::path> ChooseFile(const FileChoice& choice) override {
        throw std::logic_error(choice.Title);
    }
};

} // namespace pistaro

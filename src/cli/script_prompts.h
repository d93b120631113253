// A script is asked nothing: it agrees, and has named its file already.
#pragma once

#include "model/prompts.h"

namespace pistaro {

class ScriptPrompts : public Prompts {
public:
    std::optional<std::filesystem::path> File; ///< the answer to every file dialog

    void Tell(const Message&) override {}
    Answer Ask(const std::string&, Buttons buttons) override {
        return buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
    }
    std::optional<std::filesystem::path> ChooseFile(const FileChoice&) override { return File; }
};

} // namespace pistaro

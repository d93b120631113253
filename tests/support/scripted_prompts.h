// A stand-in for the user: answers as told, and records what was said and asked.
#pragma once

#include "model/prompts.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace pistaro {

class ScriptedPrompts : public Prompts {
public:
    struct Question {
        std::string Text;
        Buttons Choices;
    };

    std::deque<Answer> Answers; ///< given in this order
    std::deque<std::optional<std::filesystem::path>> Files;

    std::function<void()> WhenAsked = [] {};

    std::vector<Message> Told;
    std::vector<Question> Asked;
    std::vector<FileChoice> Dialogs;

    void Tell(const Message& message) override { Told.push_back(message); }

    Answer Ask(const std::string& question, Buttons buttons) override {
        Asked.push_back({question, buttons});
        WhenAsked();
        return Next(Answers, "no answer was scripted for: " + question);
    }

    std::optional<std::filesystem::path> ChooseFile(const FileChoice& choice) override {
        Dialogs.push_back(choice);
        return Next(Files, "no file was scripted for: " + choice.Title);
    }

private:
    template <typename Reply>
    static Reply Next(std::deque<Reply>& replies, const std::string& missing) {
        if (replies.empty()) throw std::logic_error(missing);
        Reply reply = replies.front();
        replies.pop_front();
        return reply;
    }
};

} // namespace pistaro

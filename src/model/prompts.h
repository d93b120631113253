// How words to the user leave the core: as message boxes, on the terminal, or into a test's record.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pistaro {

enum class Icon { None, Information, Exclamation, Critical };

struct Message {
    pistaro::Icon Icon;
    std::string Text;

    bool operator==(const Message&) const = default;
};

enum class Buttons { OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No };

/// What a file dialog is set up with.
struct FileChoice {
    bool Saving = false;
    std::string Title;
    std::string Filter; ///< "name|pattern;pattern|name|pattern"
    std::string DefaultName;
    std::string Folder;
    /// A typed name that tells a format keeps its ending whatever the filter's are, for who asked to judge it. Other
    /// names get the filter's.
    bool KeepsEnding = false;
};

class Prompts {
public:
    virtual ~Prompts() = default;
    virtual void Tell(const Message& message) = 0;
    /// Tells that a file that its user asked for is written, and more about it, which may be empty.
    virtual void TellWritten(const std::filesystem::path& file, const std::string& more);
    virtual Answer Ask(const std::string& question, Buttons buttons) = 0;
    /// Asks whether to do what a button named so does, beside Cancel: Ok or Cancel.
    virtual Answer AskWhether(const std::string& question, const std::string& action);
    /// The chosen file; nothing when the dialog was cancelled.
    virtual std::optional<std::filesystem::path> ChooseFile(const FileChoice& choice) = 0;
};

/// "/home/x.pdf is written.", below it what more there is to tell.
std::string WrittenText(const std::filesystem::path& file, const std::string& more);

} // namespace pistaro

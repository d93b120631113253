// Somebody's folder with a circuit and settings in it, and changes to that circuit that stand in no file yet.
#pragma once

#include "commands/session.h"
#include "faults/tree.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <optional>
#include <string>

namespace pistaro {

/// The folder is the home of who works there.
class Desk {
public:
    Desk();
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    /// The same folder with what stood in it at first, and a new session: "oval.trk" holds a C160, to which a C159 was
    /// added; the settings bring every section.
    void Lay();

    /// What users are told with an exclamation.
    std::vector<std::string> Faults() const;

    std::filesystem::path Folder() const { return parent_ / "desk"; }
    std::filesystem::path Circuit() const { return Folder() / "oval.trk"; }
    std::filesystem::path Settings() const { return Folder() / "corvel.ini"; }

    pistaro::Session& Session() { return *session_; }
    ScriptedPrompts& Prompts() { return prompts_; }

private:
    TemporaryFolder parent_;
    ScriptedPrompts prompts_;
    std::optional<pistaro::Session> session_;
};

} // namespace pistaro

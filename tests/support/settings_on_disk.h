// A project with a settings file of its own on disk, and a user who is told things.
#pragma once

#include "storage/settings_file.h"
#include "support/scripted_prompts.h"
#include "support/settings_bytes.h"
#include "support/temporary_folder.h"

#include "model/project.h"
#include "support/pieces.h"

#include <gtest/gtest.h>

namespace pistaro {

class SettingsOnDisk : public testing::Test {
protected:
    SettingsOnDisk() { Start(WholeSettings()); }

    /// Starts the program with a settings file of these bytes.
    void Start(const std::string& bytes) {
        WriteBytes(file_, bytes);
        project_ = StartUp(ReadSettings(Pieces(), file_));
    }

    std::string OnDisk() const { return BytesOf(file_); }

    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_ / "corvel.ini";
    Project project_;
    ScriptedPrompts prompts_;

    const std::vector<Message> saved_{{Icon::Information, "Settings saved."}};
};

} // namespace pistaro

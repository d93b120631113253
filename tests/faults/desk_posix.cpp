#include "faults/desk.h"

#include "storage/circuit_file.h"
#include "storage/settings_file.h"
#include "support/circuit_text.h"
#include "support/pieces.h"
#include "support/settings_bytes.h"

#include <cstdlib>

namespace pistaro {

Desk::Desk() {
    ::setenv("HOME", Folder().c_str(), 1);
    for (const char* const name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        ::unsetenv(name);
    Lay();
}

Desk::~Desk() = default;

void Desk::Lay() {
    session_.reset();
    prompts_ = {};
    std::filesystem::remove_all(Folder());
    std::filesystem::create_directory(Folder());
    const std::string workingDirectory = Folder().string() + "/";
    WriteBytes(Circuit(), CircuitText("C160"));
    WriteBytes(Settings(), WholeSettings());
    Project project = StartUp(ReadSettings(Pieces(), Settings()));
    project.Design = ParseCircuit(CircuitText("C160 C159"), "oval.trk");
    project.Preferences.WorkingDirectory = workingDirectory;
    project.EditState.File = Circuit();
    project.EditState.DataChanged = true;
    session_.emplace(Pieces(), prompts_, project, Settings());
    session_->PicturePixels = 30;
}

std::vector<std::string> Desk::Faults() const {
    std::vector<std::string> texts;
    for (const Message& message : prompts_.Told) {
        if (message.Icon == Icon::Exclamation) texts.push_back(message.Text);
    }
    return texts;
}

} // namespace pistaro

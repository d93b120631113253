// The designer from its first window to its last.
#pragma once

#include <filesystem>
#include <optional>

namespace pistaro {

struct DesignerFiles {
    std::filesystem::path Settings;
    std::optional<std::filesystem::path> Circuit; ///< opened at the start
    bool NoSplash = false;                        ///< without the opening window
};

/// Gives the program's exit status.
int RunDesigner(int argc, char** argv, const DesignerFiles& files);

} // namespace pistaro

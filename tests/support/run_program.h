// The built program in a child process, with a home of its own.
#pragma once

#include "support/temporary_folder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pistaro {

struct Finished {
    int ExitStatus = -1; ///< -1 when a signal ended it
    std::string Output;
    std::string Errors;
};

/// A folder in which the program runs, and a home in which it finds no settings of anybody.
class ProgramFolder {
public:
    ProgramFolder() : work_(folder_ / "work"), home_(folder_ / "home") {
        std::filesystem::create_directory(work_);
        std::filesystem::create_directory(home_);
    }

    ~ProgramFolder();
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    /// Runs the program in this folder with these arguments and this standard input, and waits for its end.
    Finished Run(const std::vector<std::string>& arguments, const std::string& input = "") const;

    const std::filesystem::path& Path() const { return work_; }
    const std::filesystem::path& Home() const { return home_; }
    std::filesystem::path operator/(std::string_view name) const { return work_ / name; }

    /// Where the program looks for the settings file when none is named.
    std::filesystem::path UsualSettings() const;

    /// Where the designer keeps unsaved work.
    std::filesystem::path Recovered() const;

    /// The user's documents folder.
    std::filesystem::path Documents() const;

private:
    TemporaryFolder folder_;
    std::filesystem::path work_, home_;
};

} // namespace pistaro

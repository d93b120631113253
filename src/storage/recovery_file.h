// Unsaved work in a folder of its own: circuit files whose names tell what the work is called, when it began, and which
// program it belongs to. Beside each lies the picture under it, if there is one, as beside any circuit file.
#pragma once

#include "model/design.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pistaro {

/// What makes the name of a recovery file.
struct RecoveryName {
    std::string Design;             ///< what the work is called
    std::chrono::sys_seconds Begun; ///< when it began
    std::string Owner;              ///< the program's mark: "4711.1763799065000"
    int Number = 0;                 ///< among the works of that program
    bool IsKept = false;            ///< its user knows of it: it was let go of, or told at a start

    bool operator==(const RecoveryName&) const = default;
};

/// The name without its ending, at most 200 bytes of a design's name in it, and no blank:
/// "My%20oval~20261122T073105Z~4711.1763799065000-1". Of a work that is kept "~kept" follows in the file's name.
std::string HandleOf(const RecoveryName& name);
std::string FileNameOf(const RecoveryName& name);

/// Nothing for the name of any other file.
std::optional<RecoveryName> RecoveryNameIn(const std::string& fileName);

/// Unsaved work as it is found.
struct RecoveredWork {
    std::filesystem::path File;
    RecoveryName Name;
    std::chrono::system_clock::time_point Written; ///< last
    bool OwnerLives = false;                       ///< and keeps it to itself: of a work that is kept nobody does
    std::optional<Design> Content;                 ///< nothing before it is read, and where the file is damaged

    std::string Handle() const { return HandleOf(Name); }
    int Pieces() const;
};

/// All work in the folder, the one that was written last first, without its content; none where there is no such
/// folder.
std::vector<RecoveredWork> FindRecoveredWork(const std::filesystem::path& folder);

/// The same with their content.
std::vector<RecoveredWork> WithContent(std::vector<RecoveredWork> works);

/// Removes a work's file and that of the picture under it. Gives whether there was such a work.
bool RemoveRecoveredWork(const std::filesystem::path& file);

/// The file by which the program with that mark shows that it lives.
std::filesystem::path LifeSignOf(const std::filesystem::path& folder, const std::string& owner);

/// Removes what is older than the newest twenty works of programs that live no more, and their life signs.
void TidyRecoveredWork(const std::filesystem::path& folder);

} // namespace pistaro

// Load, Save, New and Quit: the commands that read and write circuit files and guard unsaved work.
#pragma once

#include "model/project.h"
#include "model/prompts.h"

#include <filesystem>
#include <optional>
#include <string>

namespace pistaro {

/// A full path parted behind its last folder separator.
struct FolderAndTitle {
    std::string Folder;
    std::string Title;
};

/// Nothing for a path without a separator.
std::optional<FolderAndTitle> PartedPath(const std::string& path);

/// The project's name by its file's title: without the last four characters, whatever they are.
std::string NameFromTitle(const std::string& title);

/// Replaces the circuit, the view and the room by those of a file, and remembers its folder as the working directory,
/// in the settings file too. Faults of reading leave the project as it was; one of the settings file comes when the
/// circuit is loaded.
void LoadCircuit(Project& project, const std::filesystem::path& file);

/// Writes the circuit to a file in one step and remembers its folder. Faults of writing leave file and project as they
/// were; one of the settings file comes when the circuit is saved.
void SaveCircuit(Project& project, const std::filesystem::path& file);

/// Load with its question and its dialog.
void LoadCommand(Project& project, Prompts& prompts);

/// The same for a file that is known already: dropped on the window, or named at the start.
void LoadFileCommand(Project& project, Prompts& prompts, const std::filesystem::path& file);

/// Save with its dialog. A cancelled dialog marks the circuit as saved, and a file that exists is overwritten after
/// either answer: saved designs and their owners have relied on both.
void SaveCommand(Project& project, Prompts& prompts);

/// New with its question.
void NewCommand(Project& project, Prompts& prompts);

/// What Quit asks and saves before the program ends, which it does in every case.
void QuitCommand(Project& project, Prompts& prompts);

} // namespace pistaro

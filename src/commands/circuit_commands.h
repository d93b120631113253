// Load, both Saves, New and Quit: the commands that read and write circuit files and guard unsaved work.
#pragma once

#include "commands/session.h"

#include <filesystem>

namespace pistaro {

/// What the file dialogs offer.
inline constexpr const char* TrackFilter = "Track files (*.trk)|*.trk";

/// Fault where a circuit would be written over the settings file, under whatever name.
void CheckNotSettings(const std::filesystem::path& file, const std::filesystem::path& settings);

/// Whether the design may be replaced: it is saved, or its user lets go of it when asked what Load asks.
bool MayReplace(Session& session);

/// Load with its question and its dialog. A settings file that cannot take the new working directory is a fault that
/// comes when the circuit is loaded.
void LoadCommand(Session& session);

/// The same for a file that is known already: dropped on the window, or named at the start.
void LoadFileCommand(Session& session, const std::filesystem::path& file);

/// The same for a circuit that comes with the program. It has no file then, only its name, so that Save asks for a
/// place among the user's own; the working directory stays. Gives whether it was loaded.
bool LoadSampleCommand(Session& session, const std::filesystem::path& sample);

/// Save with its dialog. A cancelled dialog marks the circuit as saved, and a file that exists is overwritten after
/// either answer: saved designs and their owners have relied on both. Faults as with Load.
void SaveCommand(Session& session);

/// Writes the file that the circuit came from or was last saved to; where there is none, Save. Asks when another
/// program changed the file meanwhile.
void PlainSaveCommand(Session& session);

/// Asks, once for each change, whether the circuit's file shall be loaded that another program changed.
void OfferChangedFile(Session& session);

/// New with its question.
void NewCommand(Session& session);

/// What Quit asks and saves before the program ends, which it does in every case but one: Stopped when a job runs and
/// the user does not want to lose it.
void QuitCommand(Session& session);

} // namespace pistaro

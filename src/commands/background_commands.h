// The picture that lies under the circuit at its true size: imported, placed, taken away, and kept beside the circuit.
#pragma once

#include "commands/session.h"
#include "platform/files.h"

#include <filesystem>
#include <optional>

namespace pistaro {

/// Shows all tracks, the room and, in the window, the picture under them.
void FitCommand(Session& session);

/// Asks for a picture file and shows where it is to be placed; once it lies there, has it dragged to its place in the
/// drawing. Fault: the file is no picture.
void ImportBackgroundCommand(Session& session);

/// Shows where the picture under the circuit lies, to be placed anew, and then all of it.
void PlaceBackgroundCommand(Session& session);

/// Lays it under the circuit, or with null takes away what lies there.
void SetBackground(Session& session, std::shared_ptr<const ScaledBackground> background);

/// After a circuit was loaded: takes the picture that is kept beside its file. One that cannot be read, or is gone
/// since the program last saw it, is told.
void LoadBackground(Session& session);

/// The picture that lies beside unsaved work which was found; null where there is none, or it cannot be read, which is
/// told.
std::shared_ptr<const ScaledBackground> BackgroundBeside(Session& session, const std::filesystem::path& work);

/// Lays a copy of the picture beside one circuit's file beside another's. Where there is none, one that stands there
/// belongs to the circuit that was replaced and is removed. Faults where it cannot be read or written.
void CopyBackground(const std::filesystem::path& from, const std::filesystem::path& to);

/// The picture of a design that is about to be saved as that file: on disk already, but not in its place. Goes there by
/// TakePlace, when the circuit is saved. Where the design has none, one that stands there belongs to the circuit that
/// was replaced and is removed then; what is no background is left alone.
class BackgroundToSave {
public:
    /// Faults where it cannot be written.
    BackgroundToSave(Session& session, const std::filesystem::path& circuit);
    void TakePlace();

private:
    Session& session_;
    std::filesystem::path file_;
    std::optional<WrittenFile> written_;
};

} // namespace pistaro

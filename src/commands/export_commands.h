// Exporting from the window: asks for the file, and before one is replaced.
#pragma once

#include "commands/export_circuit.h"
#include "commands/session.h"

#include <functional>

namespace pistaro {

/// What a format is called where one chooses it.
const char* CaptionOf(ExportFormat format);

/// What a file of the project is called without its ending.
std::string FileTitleOf(const Session& session);

/// The folder that files are proposed to be written into: where the last one went, else the working directory.
std::string ExportFolderOf(const Session& session);

/// Asks for the file, and before one that is there already is replaced; nothing where the user gave none or said no.
std::optional<std::filesystem::path> ChooseFileToWrite(Session& session, const FileChoice& choice);

/// Asks for a file of that format, named like the project, and writes into it what `bytes` gives; a file that is there
/// already only after a yes. Tells when it is written, remembers where, and gives whether one was. Faults: those of
/// `bytes` and of writing.
bool ExportToChosenFile(Session& session, ExportFormat format, const std::function<std::string()>& bytes);

/// The same with the export of the project as it stands.
bool ExportCommand(Session& session, ExportFormat format, const ExportOptions& options);

} // namespace pistaro

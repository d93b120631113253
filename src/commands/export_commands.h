// Exporting from the window: asks for the file, and before one is replaced.
#pragma once

#include "commands/export_circuit.h"
#include "commands/session.h"

#include <functional>

namespace pistaro {

/// What a format is called where one chooses it.
const char* CaptionOf(ExportFormat format);

/// What one takes it for: "For forums, mail and messengers".
const char* PurposeOf(ExportFormat format);

/// What a file of the project is called without its ending.
std::string FileTitleOf(const Session& session);

/// The folder that files are proposed to be written into: where the last one went, else the working directory.
std::string ExportFolderOf(const Session& session);

/// Asks for a file to write. One with none of these endings (".pdf") is proposed with the first of them, and before one
/// that is there already is replaced its user is asked; where he says no, another file is asked for. Nothing where he
/// gives none.
std::optional<std::filesystem::path> AskForFile(const Session& session, FileChoice choice,
                                                const std::vector<std::string>& endings);

/// A file that is to be exported to, and the format that its ending names.
struct ExportFile {
    std::filesystem::path Path;
    ExportFormat Format;
};

/// Asks for a file as AskForFile does, named like the project and of that format unless its user types the ending of
/// another one; nothing where he gives none.
std::optional<ExportFile> ChooseExportFile(Session& session, ExportFormat proposed);

/// Writes it, remembers where, and tells where it is and what opens it. Fault: it cannot be written.
void WriteExport(Session& session, const ExportFile& file, const std::string& bytes);

/// Asks for a file for sheets and writes into it what `pdf` gives. Gives whether one was written. Faults: those of
/// `pdf` and of writing.
bool ExportSheets(Session& session, const std::function<std::string()>& pdf);

} // namespace pistaro

// The project that a verb starts with.
#pragma once

#include "cli/verbs.h"

namespace pistaro {

struct VerbStart {
    pistaro::Project Project;
    std::filesystem::path SettingsPath; ///< the file that was read, or would be
    std::vector<Message> Messages;      ///< the warnings that reading it gave
};

/// A project as the program starts with it. Without --settings the usual file is read where it stands, and is never
/// written. Faults: a file that --settings names and is not there, or one that cannot be read.
VerbStart StartVerb(const VerbContext& context);

/// The same with the warnings printed and the circuit loaded.
Project StartWithCircuit(const VerbContext& context, const std::filesystem::path& circuit);

/// Fault where a verb is about to write into the circuit that it reads, or into the settings file that was named.
void CheckNotInput(const VerbContext& context, const std::filesystem::path& circuit, const std::filesystem::path& out);

/// Prints warnings on the error stream.
void PrintMessages(const std::vector<Message>& messages, std::ostream& errors);

} // namespace pistaro

#include "cli/start.h"

#include "commands/circuit_commands.h"
#include "editor/circuit_files.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "platform/places.h"
#include "storage/settings_file.h"

namespace pistaro {

VerbStart StartVerb(const VerbContext& context) {
    const std::filesystem::path path = context.SettingsFile.value_or(SettingsPath());
    std::error_code reportedByTheRead;
    const bool firstRun =
        !context.SettingsFile && !std::filesystem::exists(path, reportedByTheRead) && !reportedByTheRead;
    const Settings settings =
        firstRun ? ParseSettings(context.Catalogue, InitialSettingsBytes(context.Catalogue), SettingsName)
                 : ReadSettings(context.Catalogue, path);
    return {StartUp(settings), path, settings.Messages};
}

Project StartWithCircuit(const VerbContext& context, const std::filesystem::path& circuit) {
    VerbStart start = StartVerb(context);
    PrintMessages(start.Messages, context.Errors);
    LoadCircuit(start.Project, circuit);
    return std::move(start.Project);
}

void CheckNotInput(const VerbContext& context, const std::filesystem::path& circuit, const std::filesystem::path& out) {
    std::error_code notThereYet;
    if (std::filesystem::equivalent(circuit, out, notThereYet))
        throw Fault("Permission denied", TextFromPath(out) + ": is the circuit that is read");
    if (context.SettingsFile) CheckNotSettings(out, *context.SettingsFile);
}

void PrintMessages(const std::vector<Message>& messages, std::ostream& errors) {
    for (const Message& message : messages)
        errors << "pistaro: " << message.Text << '\n';
}

} // namespace pistaro

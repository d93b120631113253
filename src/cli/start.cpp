// Settings, then the circuit.
#include "cli/start.h"

#include "editor/circuit_commands.h"
#include "platform/places.h"
#include "storage/settings_file.h"

namespace pistaro {

Start StartVerb(const VerbContext& context) {
    const std::filesystem::path path = context.Settings.value_or(SettingsPath());
    std::error_code reportedByTheRead;
    const bool firstRun = !context.Settings && !std::filesystem::exists(path, reportedByTheRead) && !reportedByTheRead;
    const Settings settings = firstRun ? ParseSettings(InitialSettingsBytes(), SettingsName) : ReadSettings(path);
    Start start{StartUp(settings), path, settings.Messages};
    if (context.Settings) start.Design.SettingsPath = path;
    return start;
}

Project StartWithCircuit(const VerbContext& context, const std::filesystem::path& circuit) {
    Start start = StartVerb(context);
    PrintMessages(start.Messages, context.Errors);
    start.Design.SettingsPath.clear(); // looking at a circuit does not move the working directory
    LoadCircuit(start.Design, circuit);
    return std::move(start.Design);
}

void PrintMessages(const std::vector<Message>& messages, std::ostream& errors) {
    for (const Message& message : messages)
        errors << "pistaro: " << message.Text << '\n';
}

} // namespace pistaro

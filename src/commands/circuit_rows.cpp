// Rows about the circuit as a whole: its file, the circuits before it, its history.
#include "commands/command_groups.h"

#include "commands/circuit_commands.h"
#include "commands/row_parts.h"
#include "commands/session.h"
#include "platform/files.h"

namespace pistaro {

namespace {

std::string KeepsWork(const Session& session) {
    return session.Windows == nullptr || session.Recovery == nullptr ? "There is no folder to keep unsaved work in."
                                                                     : "";
}

/// One of the circuits that were loaded and saved last; empty where there are not so many.
std::filesystem::path RecentCircuit(const Session& session, std::size_t place) {
    const auto& list = session.Recent.List();
    return place < list.size() ? list[place] : std::filesystem::path();
}

/// "&1 tracks/oval.trk"
std::string RecentText(const std::filesystem::path& circuit, std::size_t place) {
    const std::string key = place < 9 ? "&" + std::to_string(place + 1) : "1&0";
    return key + " " + MenuText(TextFromPath(circuit.parent_path().filename() / circuit.filename()));
}

Command RecentRow(std::size_t place) {
    const std::string number = std::to_string(place + 1);
    return {.Id = "recent " + number,
            .Control = "mnuRecent",
            .Tag = number,
            .Index = static_cast<int>(place),
            .Caption = "Recent circuit " + number,
            .Tip = "Open this circuit again",
            .From = Availability::WindowOnly,
            .WhyNot = [place](const Session& session) -> std::string {
                const std::filesystem::path circuit = RecentCircuit(session, place);
                if (circuit.empty()) return "No recent circuit yet.";
                std::error_code gone;
                return std::filesystem::exists(circuit, gone) ? "" : TextFromPath(circuit) + " is no longer there.";
            },
            .Run = [place](Session& session) { LoadFileCommand(session, RecentCircuit(session, place)); },
            .Shows =
                [place, caption = "Recent circuit " + number](const Session& session) {
                    const std::filesystem::path circuit = RecentCircuit(session, place);
                    return circuit.empty() ? caption : RecentText(circuit, place);
                }};
}

/// "Undo Add C151": a row that names the state it goes to or from.
std::string NamingStep(const char* caption, bool can, const Session& session, std::size_t state) {
    return can ? caption + (" " + MenuText(session.History().Caption(state))) : caption;
}

} // namespace

void AddRecentCommands(std::vector<Command>& rows) {
    for (std::size_t place = 0; place < RecentCircuits::Most; ++place)
        rows.push_back(RecentRow(place));
    rows.push_back({.Id = "recent clear",
                    .Control = "mnuRecentClear",
                    .Caption = "&Clear",
                    .Tip = "Clear this list; the files are kept",
                    .From = Availability::WindowOnly,
                    .WhyNot = [](const Session& session) -> std::string {
                        return session.Recent.List().empty() ? "There are none." : "";
                    },
                    .Run = [](Session& session) { session.Recent.Clear(); }});
}

void AddCircuitCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "new",
                    .Control = "mnuCircuitReinit",
                    .Caption = "&New",
                    .Tip = "Start a new, empty circuit",
                    .Key = "Ctrl+N",
                    .Run = NewCommand});
    rows.push_back({.Id = "load",
                    .Control = "mnuCircuitLoad",
                    .Caption = "&Load…",
                    .Tip = "Open a circuit file",
                    .Key = "Ctrl+O",
                    .Run = LoadCommand});
    rows.push_back({.Id = "plain save",
                    .Control = "mnuCircuitPlainSave",
                    .Caption = "&Save",
                    .Tip = "Write the circuit to its file",
                    .Key = "Ctrl+S",
                    .From = Availability::WindowOnly,
                    .Run = PlainSaveCommand});
    rows.push_back({.Id = "save",
                    .Control = "mnuCircuitSave",
                    .Caption = "Save &As…",
                    .Tip = "Write the circuit to a file that you name",
                    .Key = "Ctrl+Shift+S",
                    .Run = SaveCommand});
    rows.push_back({.Id = "recovered work",
                    .Control = "mnuRecovered",
                    .Caption = "Reco&vered Work…",
                    .Tip = "Show work that was not saved, and open it",
                    .From = Availability::WindowOnly,
                    .WhyNot = KeepsWork,
                    .Run = [](Session& session) { session.Windows->ShowRecovered(); }});
    rows.push_back({.Id = "quit",
                    .Control = "mnuQuit",
                    .Caption = "&Quit",
                    .Tip = "End Pistaro",
                    .Key = "Ctrl+Q",
                    .From = Availability::WindowOnly,
                    .Run = QuitCommand});
}

void AddHistoryCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "undo",
                    .Control = "mnuUndo",
                    .Caption = "&Undo",
                    .Tip = "Undo the last change",
                    .Key = "Ctrl+Z",
                    .Repeatable = true,
                    .WhyNot = [](const Session& session) -> std::string {
                        return session.History().CanUndo() ? "" : "There is nothing to undo.";
                    },
                    .Run = [](Session& session) { session.GoTo(session.History().Present() - 1); },
                    .Shows =
                        [](const Session& session) {
                            const History& history = session.History();
                            return NamingStep("&Undo", history.CanUndo(), session, history.Present());
                        }});
    rows.push_back({.Id = "redo",
                    .Control = "mnuRedo",
                    .Caption = "&Redo",
                    .Tip = "Redo what was undone",
                    .Key = "Ctrl+Shift+Z",
                    .OtherKey = "Ctrl+Y",
                    .Repeatable = true,
                    .WhyNot = [](const Session& session) -> std::string {
                        return session.History().CanRedo() ? "" : "There is nothing to redo.";
                    },
                    .Run = [](Session& session) { session.GoTo(session.History().Present() + 1); },
                    .Shows =
                        [](const Session& session) {
                            const History& history = session.History();
                            return NamingStep("&Redo", history.CanRedo(), session, history.Present() + 1);
                        }});
    rows.push_back(WindowRow("history", "mnuHistory", "&History",
                             "List all changes beside the drawing, to go back to any", "Ctrl+H", Panel::History));
}

} // namespace pistaro

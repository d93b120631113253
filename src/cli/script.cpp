// The commands are those of the command table by their ids, and those that take values.
#include "cli/script.h"

#include "cli/check_json.h"
#include "cli/script_dialogs.h"
#include "cli/script_words.h"
#include "cli/state_json.h"
#include "commands/circuit_commands.h"
#include "commands/closing_commands.h"
#include "editor/mouse_selection.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "exchange/layout_json.h"
#include "platform/fault.h"
#include "platform/fault_words.h"
#include "platform/files.h"

#include <array>
#include <optional>

namespace pistaro {

namespace {

const Command& RowOf(const Script& script, const std::string& id) {
    const Command* const command = script.Session.Commands.Find(id);
    if (command == nullptr || command->From == Availability::WindowOnly)
        throw Refused("there is no command \"" + id + "\"");
    return *command;
}

void RunById(Script& script, const std::string& id, int times = 1) {
    const Command& command = RowOf(script, id);
    for (int i = 0; i < times; ++i)
        script.Session.Run(command);
}

void RunOnFile(Script& script, const Words& words) {
    if (words[1].empty()) throw Refused("\"" + words[0] + "\" wants the name of a file");
    script.Prompts.File = PathFromText(words[1]);
    if (words[0] == "save") CheckNotSettings(*script.Prompts.File, script.SettingsFile);
    RunById(script, words[0]);
}

void Add(Script& script, const Words& words) {
    for (std::size_t i = 1; i < words.size(); ++i)
        RunById(script, "add " + words[i]);
}

void Select(Script& script, const Words& words) {
    Project& project = script.Session.Project;
    const Track* const track = EditedTrack(project.Design.Circuit, project.EditState);
    if (track == nullptr || track->ElementCodes.empty()) throw Refused("the element list is empty");
    SelectElement(project.Design.Circuit, project.EditState, IntegerIn(words[1], 0, track->ElementLastIndex()));
}

void Click(Script& script, const Words& words) {
    Project& project = script.Session.Project;
    SelectNearestElement(script.Session.Catalogue, project.Design.Circuit, project.EditState,
                         {SingleIn(words[1]), SingleIn(words[2])});
}

void Scroll(Script& script, const Words& words) {
    ViewSettings& view = script.Session.Project.Design.View;
    const int x = IntegerIn(words[1], view.HMov.Minimum, view.HMov.Maximum);
    const int y = IntegerIn(words[2], view.VMov.Minimum, view.VMov.Maximum);
    ScrollHorizontally(view, x);
    ScrollVertically(view, y);
}

void Close(Script& script, const Words& words) {
    LaySuggestion(script.Session, words.size() == 1 ? 1 : IntegerIn(words[1], 1, 100));
}

void PrintState(Script& script, const Words&) {
    script.Output << Line(StateJson(script.Session.Catalogue, script.Session.Project)) << std::endl;
}

void PrintLayout(Script& script, const Words&) {
    script.Output << Line(LayoutJson(script.Session.Catalogue, script.Session.Project.Design.Circuit)) << std::endl;
}

void PrintFindings(Script& script, const Words&) {
    script.Output << Line(FindingsJson(FindingsOf(script.Session.Catalogue, script.Session.Project))) << std::endl;
}

/// A row whose words after the first are its values.
struct ValueCommand {
    std::string_view Name;
    std::size_t LeastWords, MostWords;
    void (*Run)(Script&, const Words&);
    bool IsOfDialog = false; ///< refused unless a settings file was named that the dialogs may write
    bool RunsRows = false;   ///< each of them is work of its own
};

constexpr std::size_t AnyNumber = 100000;

constexpr std::array ValueCommands{
    ValueCommand{"load", 2, 2, RunOnFile, false, true},
    ValueCommand{"save", 2, 2, RunOnFile, false, true},
    ValueCommand{"add", 2, AnyNumber, Add, false, true},
    ValueCommand{"select", 2, 2, Select},
    ValueCommand{"click", 3, 3, Click},
    ValueCommand{"scroll", 3, 3, Scroll},
    ValueCommand{"close", 1, 2, Close},
    ValueCommand{"state", 1, 1, PrintState},
    ValueCommand{"layout", 1, 1, PrintLayout},
    ValueCommand{"check", 1, 1, PrintFindings},
    ValueCommand{"colours", 2, AnyNumber, RunColours, true},
    ValueCommand{"stock", 2, AnyNumber, RunStock, true},
    ValueCommand{"area", 2, AnyNumber, RunArea, true},
    ValueCommand{"room", 3, 6, RunRoom, true},
    ValueCommand{"settings", 1, 1, PrintSettings, true},
};

/// A line that is a command's id, with the number of times after it where the command can be repeated.
void RunTableCommand(Script& script, Words words) {
    if (words[0].find(' ') != std::string::npos) throw Refused("there is no command \"" + words[0] + "\"");
    const auto repeatable = [&](const std::string& id) {
        const Command* const command = script.Session.Commands.Find(id);
        return command != nullptr && command->Repeatable;
    };
    const std::size_t wordsOfId = repeatable(words[0]) ? 1 : 2;
    int times = 1;
    if (words.size() == wordsOfId + 1) {
        if (wordsOfId == 2 && !repeatable(words[0] + " " + words[1]))
            throw Refused("\"" + words[0] + "\" takes no more than one word");
        times = IntegerIn(words.back(), 1, 1000);
        words.pop_back();
    }
    if (words.size() > wordsOfId) throw Refused("there are too many words after \"" + words[0] + "\"");
    RunById(script, words.size() == 2 ? words[0] + " " + words[1] : words[0], times);
}

void RunLine(Script& script, const std::string& line) {
    const Words words = ScriptWords(line);
    if (words.empty()) return;
    for (const ValueCommand& command : ValueCommands) {
        if (command.Name != words[0]) continue;
        if (words.size() < command.LeastWords) throw Refused("\"" + words[0] + "\" wants more words after it");
        if (words.size() > command.MostWords) throw Refused("there are too many words after \"" + words[0] + "\"");
        if (command.IsOfDialog && script.Session.SettingsPath.empty())
            throw Refused("the dialogs want a settings file named by --settings");
        if (command.RunsRows) return command.Run(script, words);
        return script.Session.Work([&] { command.Run(script, words); });
    }
    RunTableCommand(script, words);
}

} // namespace

void RunScript(Session& session, ScriptPrompts& prompts, std::istream& script, const std::string& name,
               std::ostream& output, const VerbStart& start) {
    session.Now = [] { return std::chrono::steady_clock::time_point(); }; // a slow machine changes no step
    Script running{session, prompts, output, start.Messages, start.SettingsPath, std::nullopt};
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    int number = 0;
    ScriptLines lines(script, name);
    for (std::string line; lines.Next(line);) {
        if (++number == 1 && line.starts_with(byteOrderMark)) line.erase(0, byteOrderMark.size());
        try {
            RunLine(running, line);
        } catch (const std::exception& fault) {
            throw Fault(name + ", line " + std::to_string(number), WordsOf(fault));
        }
    }
}

} // namespace pistaro

// Rows of the command table, run by their ids.
#include "support/press.h"

#include "editor/commands.h"
#include "render/stock_colours.h"
#include "storage/circuit_file.h"
#include "support/chain.h"
#include "support/scripted_prompts.h"

#include <sstream>

namespace pistaro {

namespace {

const Command& Row(const std::string& id) {
    const Command* const command = FindCommand(id);
    if (command == nullptr) throw std::logic_error("there is no command " + id);
    return *command;
}

} // namespace

void Press(Project& project, const std::string& id, int times) {
    ScriptedPrompts nobody;
    for (int i = 0; i < times; ++i)
        Press(project, id, nobody);
}

void Press(Project& project, const std::string& id, Prompts& prompts) {
    const std::string whyNot = WhyNot(project, id);
    if (!whyNot.empty()) throw std::logic_error(id + " is not offered: " + whyNot);
    Row(id).Run(project, prompts);
    AssignStockColours(project);
}

std::string WhyNot(const Project& project, const std::string& id) { return Row(id).WhyNot(project); }

void Add(Project& project, const std::string& codes) {
    for (const std::string& code : Codes(codes))
        Press(project, "add " + code);
}

std::string Snapshot(const Project& project) {
    std::ostringstream text;
    text << CircuitBytes(project) << project.View.MidX << ' ' << project.View.MidY << ' ' << project.View.MWid << '\n';
    for (const Track& track : project.Layout.Tracks)
        text << track.CurrentElement << ' ';
    text << project.Layout.CurrentTrack << project.InsertMode << project.DataChanged << static_cast<int>(project.System)
         << project.Name << '\n'
         << project.WorkingDirectory;
    return text.str();
}

} // namespace pistaro

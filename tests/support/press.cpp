#include "support/press.h"

#include "commands/session.h"
#include "storage/circuit_file.h"
#include "support/chain.h"
#include "support/scripted_prompts.h"

#include <sstream>

namespace pistaro {

namespace {

const Command& Row(const Session& session, const std::string& id) {
    const Command* const command = session.Commands.Find(id);
    if (command == nullptr) throw std::logic_error("there is no command " + id);
    return *command;
}

} // namespace

void Press(Project& project, const std::string& id, int times) {
    ScriptedPrompts nobody;
    for (int i = 0; i < times; ++i)
        Press(project, id, nobody);
}

void Press(Project& project, const std::string& id, Prompts& prompts, const std::filesystem::path& settingsPath) {
    Session session(Pieces(), prompts, project, settingsPath);
    const std::string whyNot = Row(session, id).WhyNot(session);
    if (!whyNot.empty()) throw std::logic_error(id + " is not offered: " + whyNot);
    // What the command leaves stays, be it a fault's.
    const Observation observation = session.Observe([&](const Changes&) { project = session.Project; });
    session.Run(Row(session, id));
}

std::string WhyNot(const Project& project, const std::string& id) {
    ScriptedPrompts nobody;
    const Session session(Pieces(), nobody, project, {});
    return Row(session, id).WhyNot(session);
}

void Add(Project& project, const std::string& codes) {
    for (const std::string& code : Codes(codes))
        Press(project, "add " + code);
}

std::string Snapshot(const Project& project) {
    std::ostringstream text;
    const EditState& edit = project.EditState;
    text << CircuitBytes(project.Design) << project.Design.View.MidX << ' ' << project.Design.View.MidY << ' '
         << project.Design.View.MWid << '\n';
    for (const int current : edit.CurrentElement)
        text << current << ' ';
    text << edit.CurrentTrack << edit.InsertMode << edit.DataChanged << static_cast<int>(edit.System)
         << ProjectName(edit) << '\n'
         << project.Preferences.WorkingDirectory;
    return text.str();
}

} // namespace pistaro

// The table of user commands: buttons, menu entries, keys and the script run them all through its rows.
#pragma once

#include "catalogue/catalogue.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

class Session;

/// Where a command can be given.
enum class Availability {
    WindowAndScript,
    WindowOnly, ///< it opens a window, or its effect is one of a window
};

struct Command {
    std::string Id = {};       ///< as a script writes it: "move up", "add C151L"
    std::string Control = {};  ///< the window's control that runs it
    std::string Tag = {};      ///< the piece that the control stands for, if it is one of many of its name
    int Index = -1;            ///< the control's place in its array, if it is in one
    std::string Caption = {};  ///< what the control shows
    std::string Tip = {};      ///< what it does, in a few words
    std::string Key = {};      ///< its shortcut, if it has one
    std::string OtherKey = {}; ///< a second one
    bool Repeatable = false;   ///< a script may give a number of times; a run of it is one step of the history
    Availability From = Availability::WindowAndScript;
    /// Why it cannot be done now; empty when it can.
    std::function<std::string(const Session&)> WhyNot = [](const Session&) { return std::string(); };
    std::function<void(Session&)> Run = {};                ///< by Session::Run, which looks at WhyNot first
    std::function<bool(const Session&)> IsOn = {};         ///< of a command that is in force or not
    std::function<std::string(const Session&)> Shows = {}; ///< where the caption follows the state
    std::function<std::string(const Session&)> Step =
        {}; ///< what the history calls it, where the caption does not tell
};

/// A caption as it reads: without the mark of its key and the dots of a dialog.
std::string PlainCaption(std::string_view caption);

/// All rows, group by group in the order of the menus. Those of pieces come from the catalogue.
class CommandTable {
public:
    explicit CommandTable(const Catalogue& catalogue);

    const std::vector<Command>& Rows() const { return rows_; }

    /// Null when no command has that id.
    const Command* Find(std::string_view id) const;

private:
    std::vector<Command> rows_;
};

} // namespace pistaro

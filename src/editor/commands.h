// The table of user commands: buttons, menu entries, keys and the script run them all through its rows.
#pragma once

#include "model/project.h"
#include "model/prompts.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

struct Command {
    std::string Id;          ///< as a script writes it: "move up", "add C151L"
    std::string Control;     ///< the window's control that runs it
    std::string Tag;         ///< the piece that the control stands for, if it is one of many of its name
    std::string Caption;     ///< what the control shows
    std::string Tip;         ///< what it does, in a few words
    std::string Key;         ///< its shortcut, if it has one
    bool Repeatable = false; ///< a script may give a number of times
    std::function<std::string(const Project&)> WhyNot; ///< why it cannot be done now; empty when it can
    std::function<void(Project&, Prompts&)> Run;
};

/// All rows, group by group in the order of the menus.
const std::vector<Command>& Commands();

/// Null when no command has that id.
const Command* FindCommand(std::string_view id);

} // namespace pistaro

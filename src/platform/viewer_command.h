// The registry's command for a file type, reduced to the program in it.
#pragma once

#include <string>

namespace pistaro {

/// A registered command without its double quotes and without everything from its last "%" on: "C:\Web\view.exe" from
/// "\"C:\Web\view.exe\" \"%1\"".
std::string ProgramOfCommand(std::string command);

/// A program's command up to its first "-", without blanks at its ends: "C:\Web\view.exe" from
/// "C:\Web\view.exe -nohome". A "-" in the name of a folder cuts it there.
std::string CutAtDash(const std::string& command);

} // namespace pistaro

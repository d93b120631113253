// The registry's command for a file type, reduced to the program in it.
#pragma once

#include <functional>
#include <string>

namespace pistaro {

/// A registered command without its double quotes and without everything from its last "%" on: "C:\Web\view.exe" from
/// "\"C:\Web\view.exe\" \"%1\"".
std::string ProgramOfCommand(std::string command);

/// A program's command up to its first "-", without blanks at its ends: "C:\Web\view.exe" from
/// "C:\Web\view.exe -nohome". A "-" in the name of a folder cuts it there.
std::string CutAtDash(const std::string& command);

/// A command as the system takes it: the path of a program in double quotes where it holds a blank, which would end it
/// otherwise, and have whatever stands at "C:\Program" run. The path is the longest beginning that names a file; where
/// none does, as in a path that was cut, the whole of what looks like a path.
std::string QuotedProgram(const std::string& command, const std::function<bool(const std::string&)>& isFile);

} // namespace pistaro

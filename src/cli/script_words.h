// A script's lines as words.
#pragma once

#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

/// The next line without its end, which is CR LF, LF or CR; false when there is none. Reads no further than it must, so
/// that a script can be typed.
bool NextScriptLine(std::istream& script, std::string& line);

/// The words of a line: parted by blanks, double quotes keep blanks together, "#" at the start of a word begins a
/// comment. Faults: a quote that is not closed, control characters.
std::vector<std::string> ScriptWords(std::string_view line);

} // namespace pistaro

// A script's lines as words.
#pragma once

#include "platform/fault.h"

#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

using Words = std::vector<std::string>;

/// The next line without its end, which is CR LF, LF or CR; false when there is none. Reads no further than it must, so
/// that a script can be typed.
bool NextScriptLine(std::istream& script, std::string& line);

/// The words of a line: parted by blanks, double quotes keep blanks together, "#" at the start of a word begins a
/// comment. Faults: a quote that is not closed, control characters.
Words ScriptWords(std::string_view line);

/// Why a line is not run.
inline Fault Refused(const std::string& reason) { return {"Refused", reason}; }

/// A word as a finite number; refused if it is none.
double NumberIn(const std::string& word);

/// The same within the range of a single.
float SingleIn(const std::string& word);

/// A word as a whole number within these limits; refused if it is none.
int IntegerIn(const std::string& word, int least, int most);

} // namespace pistaro

// A script's lines as words.
#pragma once

#include "platform/fault.h"

#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

using Words = std::vector<std::string>;

/// A script line by line. Reads no further than it must, so that one can be typed.
class ScriptLines {
public:
    /// `name` is the script's in the fault.
    ScriptLines(std::istream& script, std::string name) : script_(script), name_(std::move(name)) {}

    /// The next line without its end, which is CR LF, LF or CR; false when there is none. Fault beyond MostFileBytes.
    bool Next(std::string& line);

private:
    /// The next byte, the end-of-file value when there is none.
    int Take();

    std::istream& script_;
    std::string name_;
    std::size_t taken_ = 0;
};

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

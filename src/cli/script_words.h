// A script's lines as words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

/// The words of a line: parted by blanks, double quotes keep blanks together, "#" at the start of a word begins a
/// comment. Fault at a quote that is not closed.
std::vector<std::string> ScriptWords(std::string_view line);

} // namespace pistaro

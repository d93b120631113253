// The program's one-line JSON, spread over lines so that a person can read it and a difference shows in its line.
#pragma once

#include <string>
#include <string_view>

namespace pistaro {

/// Each document, a line that ends in a line feed, with line feeds and blanks added outside its strings and nothing
/// else changed, so that two texts become the same only if they are the same. A line that holds white space outside its
/// strings, or that does not end in a line feed, is told as "not one line of JSON".
std::string PrettyJson(std::string_view documents);

} // namespace pistaro

// What the TOML library takes for granted of a text, which has to be looked at before the library reads it.
#pragma once

#include <string>
#include <string_view>

namespace pistaro {

/// Fault, with the line, where a letter outside ASCII stands neither in a string nor in a comment, where one follows a
/// backslash, where a table's bracket is followed by no name and that of an array by a brace, where a word that begins
/// with a digit or a sign is no number (a date, a key), and where a key has so many parts that tables would fill the
/// stack: there the library's behaviour is undefined, or near to it. What else is wrong the library tells itself.
void CheckTomlText(std::string_view text, const std::string& name);

} // namespace pistaro

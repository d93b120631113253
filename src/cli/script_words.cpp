// Lines by any of their ends, then one pass over each for its words.
#include "cli/script_words.h"

#include "platform/fault.h"

#include <algorithm>

namespace pistaro {

namespace {

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; }

} // namespace

bool NextScriptLine(std::istream& script, std::string& line) {
    line.clear();
    for (int c = script.get(); c != std::istream::traits_type::eof(); c = script.get()) {
        if (c == '\n') return true;
        if (c == '\r') {
            if (script.peek() == '\n') script.get();
            return true;
        }
        line += static_cast<char>(c);
    }
    return !line.empty();
}

std::vector<std::string> ScriptWords(std::string_view line) {
    if (std::ranges::any_of(line, IsControl)) throw BadFileFormat("this is not a text file");
    std::vector<std::string> words;
    bool inWord = false;
    bool quoted = false;
    for (const char c : line) {
        const bool blank = c == ' ' || c == '\t';
        if (!quoted && !inWord && c == '#') break;
        if (!quoted && blank) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (c == '"') {
            quoted = !quoted;
        } else {
            words.back() += c;
        }
    }
    if (quoted) throw BadFileFormat("a double quote is not closed");
    return words;
}

} // namespace pistaro

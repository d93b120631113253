// One pass over the line.
#include "cli/script_words.h"

#include "platform/fault.h"

namespace pistaro {

std::vector<std::string> ScriptWords(std::string_view line) {
    std::vector<std::string> words;
    bool inWord = false;
    bool quoted = false;
    for (const char c : line) {
        const bool blank = c == ' ' || c == '\t' || c == '\r';
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

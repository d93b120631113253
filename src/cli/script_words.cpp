#include "cli/script_words.h"

#include "storage/line_reader.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; }

} // namespace

int ScriptLines::Take() {
    const int c = script_.get();
    if (c != std::istream::traits_type::eof() && ++taken_ > MostFileBytes) throw Fault("File too large", name_);
    return c;
}

bool ScriptLines::Next(std::string& line) {
    line.clear();
    for (int c = Take(); c != std::istream::traits_type::eof(); c = Take()) {
        if (c == '\n') return true;
        if (c == '\r') {
            if (script_.peek() == '\n') Take();
            return true;
        }
        line += static_cast<char>(c);
    }
    return !line.empty();
}

Words ScriptWords(std::string_view line) {
    if (std::ranges::any_of(line, IsControl)) throw BadFileFormat("this is not a text file");
    Words words;
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

double NumberIn(const std::string& word) {
    const double value = IsNumber(word) ? ParseNumber(word) : NAN;
    if (!std::isfinite(value)) throw Refused("\"" + word + "\" is no number");
    return value;
}

float SingleIn(const std::string& word) {
    const auto value = static_cast<float>(NumberIn(word));
    if (!std::isfinite(value)) throw Refused("\"" + word + "\" is too large");
    return value;
}

int IntegerIn(const std::string& word, int least, int most) {
    const double value = NumberIn(word);
    const auto whole = RoundedWithin(value, least, most);
    if (whole && *whole == value) return *whole;
    throw Refused("\"" + word + "\" is no whole number from " + std::to_string(least) + " to " + std::to_string(most));
}

} // namespace pistaro

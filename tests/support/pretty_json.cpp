// On the level of text: numbers keep their digits and objects the order of their keys.
#include "support/pretty_json.h"

namespace pistaro {

namespace {

constexpr std::size_t Width = 100;
constexpr std::size_t Step = 2;

/// After the string that opens at `at`, or the text's end.
std::size_t AfterString(std::string_view text, std::size_t at) {
    for (++at; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] == '\\') ++at;
    }
    return at < text.size() ? at + 1 : text.size();
}

/// After the object or list that opens at `at`, or the text's end.
std::size_t AfterBracket(std::string_view text, std::size_t at) {
    std::size_t depth = 0;
    while (at < text.size()) {
        const char c = text[at];
        if (c == '"') {
            at = AfterString(text, at);
            continue;
        }
        ++at;
        if (c == '{' || c == '[') ++depth;
        if ((c == '}' || c == ']') && --depth == 0) break;
    }
    return at;
}

bool HoldsSpaceOutsideStrings(std::string_view line) {
    for (std::size_t at = 0; at < line.size();) {
        if (line[at] == ' ' || line[at] == '\t' || line[at] == '\r') return true;
        at = line[at] == '"' ? AfterString(line, at) : at + 1;
    }
    return false;
}

/// What fits its line stays on it.
std::string PrettyDocument(std::string_view line) {
    std::string pretty;
    std::size_t indent = 0;
    const auto breakLine = [&] { pretty += '\n' + std::string(indent, ' '); };
    for (std::size_t at = 0; at < line.size();) {
        const char c = line[at];
        const bool opens = c == '{' || c == '[';
        std::size_t after = at + 1;
        if (c == '"') after = AfterString(line, at);
        if (opens && indent + AfterBracket(line, at) - at <= Width) after = AfterBracket(line, at);
        const bool spread = opens && after == at + 1;
        if ((c == '}' || c == ']') && indent >= Step) {
            indent -= Step;
            breakLine();
        }
        pretty += line.substr(at, after - at);
        if (spread) indent += Step;
        if (spread || c == ',') breakLine();
        if (c == ':') pretty += ' ';
        at = after;
    }
    return pretty;
}

} // namespace

std::string PrettyJson(std::string_view documents) {
    std::string pretty;
    while (!documents.empty()) {
        const std::size_t end = documents.find('\n');
        const std::string_view line = documents.substr(0, end);
        const bool canonical = end != std::string_view::npos && !HoldsSpaceOutsideStrings(line);
        pretty += canonical ? PrettyDocument(line) : "not one line of JSON: " + std::string(line);
        pretty += '\n';
        documents.remove_prefix(end == std::string_view::npos ? documents.size() : end + 1);
    }
    return pretty;
}

} // namespace pistaro

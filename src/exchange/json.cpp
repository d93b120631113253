#include "exchange/json.h"

#include <array>
#include <charconv>
#include <cmath>

namespace pistaro {

namespace {

const char* IconName(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return "information";
    case Icon::Exclamation:
        return "exclamation";
    case Icon::Critical:
        return "critical";
    case Icon::None:
        break;
    }
    return "";
}

template <typename Real>
std::string ShortestDigits(Real value) {
    std::array<char, 64> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

void Append(std::string& line, const Json& json) {
    const char* separator = "";
    if (json.is_object()) {
        line += '{';
        for (const auto& [key, member] : json.items()) {
            line.append(separator).append(Line(key)).append(":");
            Append(line, member);
            separator = ",";
        }
        line += '}';
    } else if (json.is_array()) {
        line += '[';
        for (const Json& element : json) {
            line += separator;
            Append(line, element);
            separator = ",";
        }
        line += ']';
    } else if (json.is_number_float() && std::isfinite(json.get<double>())) {
        line += ShortestDigits(json.get<double>());
    } else {
        line += json.dump(-1, ' ', false, Json::error_handler_t::replace);
    }
}

} // namespace

Json Number(double value) {
    constexpr double exactIntegers = 9007199254740992.0; // 2^53
    if (value == std::floor(value) && std::fabs(value) < exactIntegers) return static_cast<long long>(value);
    return value;
}

Json Number(float value) {
    // The shortest text of a double with the single's own shortest text is that same text.
    const std::string text = ShortestDigits(value);
    double same = value;
    std::from_chars(text.data(), text.data() + text.size(), same);
    return Number(same);
}

Json CursorJson(const BuildCursor& cursor) {
    return {Number(cursor.CursorX), Number(cursor.CursorY), Number(cursor.CursorHeading)};
}

Json MessageJson(const Message& message) { return {{"icon", IconName(message.Icon)}, {"text", message.Text}}; }

Json MessagesJson(const std::vector<Message>& messages) {
    Json array = Json::array();
    for (const Message& message : messages)
        array.push_back(MessageJson(message));
    return array;
}

std::string Line(const Json& json) {
    // Not the library's own dump of the whole: of a number in a thousand it writes 17 digits where fewer would do.
    std::string line;
    Append(line, json);
    return line;
}

} // namespace pistaro

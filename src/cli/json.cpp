// Numbers and common pieces of the JSON documents.
#include "cli/json.h"

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

} // namespace

Json Number(double value) {
    constexpr double exactIntegers = 9007199254740992.0; // 2^53
    if (value == std::floor(value) && std::fabs(value) < exactIntegers) return static_cast<long long>(value);
    return value;
}

Json Number(float value) {
    // The shortest text of a double with the single's own shortest text is that same text.
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    double same = value;
    std::from_chars(text.data(), end, same);
    return Number(same);
}

Json CursorJson(const BuildCursor& cursor) {
    return {Number(cursor.CursorX), Number(cursor.CursorY), Number(cursor.CursorHeading)};
}

Json MessageJson(const Message& message) { return {{"icon", IconName(message.MessageIcon)}, {"text", message.Text}}; }

Json MessagesJson(const std::vector<Message>& messages) {
    Json array = Json::array();
    for (const Message& message : messages)
        array.push_back(MessageJson(message));
    return array;
}

std::string Line(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

} // namespace pistaro

// JSON as every verb prints it: one line, keys in the order in which they were put in.
#pragma once

#include "model/circuit.h"
#include "model/prompts.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace pistaro {

using Json = nlohmann::ordered_json;

/// A single with the fewest digits that read back to the same single; whole numbers without a fraction.
Json Number(float value);
Json Number(double value);

/// [x,y,heading]
Json CursorJson(const BuildCursor& cursor);

/// {"icon":"exclamation","text":"..."}
Json MessageJson(const Message& message);
Json MessagesJson(const std::vector<Message>& messages);

/// The document's line, without its end.
std::string Line(const Json& json);

} // namespace pistaro

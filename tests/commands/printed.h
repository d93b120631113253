// How failed expectations print the values of a session.
#pragma once

#include "commands/session.h"

#include <ostream>

namespace pistaro {

inline void PrintTo(const Changes& changes, std::ostream* output) {
    *output << (changes.Circuit ? "circuit " : "") << (changes.Room ? "room " : "") << (changes.View ? "view " : "")
            << (changes.EditState ? "edit-state " : "") << (changes.Stock ? "stock " : "")
            << (changes.Preferences ? "preferences " : "") << (changes.Background ? "background " : "")
            << (changes.Saved ? "saved " : "") << (changes.OtherCircuit ? "other-circuit " : "");
}

inline void PrintTo(const Message& message, std::ostream* output) { *output << message.Text; }

} // namespace pistaro

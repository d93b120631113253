// Circuit files short enough to type.
#pragma once

#include <string>

namespace pistaro {

/// A circuit file of the default view without a room, whose track 1 starts at 0, 0 and holds these pieces.
inline std::string CircuitText(const std::string& codes, const std::string& width = "320") {
    std::string lines;
    std::string code;
    for (const char c : codes + " ") {
        if (c != ' ') {
            code += c;
        } else if (!code.empty()) {
            lines += code + "\r\n";
            code.clear();
        }
    }
    return "[Settings]\r\n0\r\n0\r\n0\r\n0\r\n" + width +
           "\r\n160\r\n[Room]\r\n 0 \r\n0\r\n[Track 0]\r\n0\r\n0\r\n0\r\n" + lines +
           "[Track 1]\r\n15.5\r\n0\r\n0\r\n[Track 2]\r\n-15.5\r\n0\r\n0\r\n";
}

} // namespace pistaro

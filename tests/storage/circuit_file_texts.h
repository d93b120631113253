// Two circuit files as texts, and their lines.
#pragma once

#include <string>
#include <vector>

namespace pistaro {

/// What an empty project is saved as.
inline const std::string EmptyFile = "[Settings]\r\n0\r\n0\r\n0\r\n0\r\n320\r\n160\r\n"
                                     "[Room]\r\n 0 \r\n0\r\n"
                                     "[Track 0]\r\n0\r\n0\r\n0\r\n"
                                     "[Track 1]\r\n15.5\r\n0\r\n0\r\n"
                                     "[Track 2]\r\n-15.5\r\n0\r\n0\r\n";

/// A room, elements, and numbers at the ends of their ranges.
inline const std::string FullFile = "[Settings]\r\n40\r\n-10\r\n33\r\n-7\r\n120.5\r\n160\r\n"
                                    "[Room]\r\n"
                                    " 3 \r\n"
                                    "       120       -35    1\r\n"
                                    "     32767    -32768   -1\r\n"
                                    "         0         0    0\r\n"
                                    ".7853981\r\n"
                                    "[Track 0]\r\n-3.5\r\n.25\r\n6.283185\r\n"
                                    "C151L\r\nC160\r\n\r\nmy \xE9\x81 piece \r\n"
                                    "[Track 1]\r\n15.5\r\n1E+07\r\n0\r\n"
                                    "N10105R\r\n"
                                    "[Track 2]\r\n-15.5\r\n0\r\n1.192093E-07\r\n";

inline std::vector<std::string> LinesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = bytes.find("\r\n", at);
        lines.push_back(bytes.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

inline std::string Joined(const std::vector<std::string>& lines, const std::string& lineEnd = "\r\n") {
    std::string bytes;
    for (const std::string& line : lines)
        bytes += line + lineEnd;
    return bytes;
}

/// The full file with its line `number` (from 1) replaced.
inline std::string FullFileWith(std::size_t number, const std::string& line) {
    std::vector<std::string> lines = LinesOf(FullFile);
    lines.at(number - 1) = line;
    return Joined(lines);
}

} // namespace pistaro

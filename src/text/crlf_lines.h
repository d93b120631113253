// The lines of every text file that the program writes: each ends in CR LF, the last one too.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace pistaro {

class CrLfLines {
public:
    CrLfLines& operator<<(std::string_view line) {
        bytes_.append(line).append("\r\n");
        return *this;
    }
    /// The text so far; nothing of it stays here.
    std::string Take() { return std::exchange(bytes_, {}); }

private:
    std::string bytes_;
};

} // namespace pistaro

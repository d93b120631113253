// What a user chose last where the program asks for the same again and again: kept with the window's own.
#pragma once

#include <string>

namespace pistaro {

struct Habits {
    std::string ExportFolder; ///< empty before the first export
    std::string ExportEnding; ///< ".pdf"
    std::string Paper;        ///< "A4"

    bool operator==(const Habits&) const = default;
};

} // namespace pistaro

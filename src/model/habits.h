// What a user chose last where the program asks for the same again and again: kept with the window's own.
#pragma once

#include <string>

namespace pistaro {

struct Habits {
    std::string ExportFolder; ///< empty before the first export
    std::string ExportEnding; ///< ".pdf"
    std::string Paper;        ///< "A4"
    std::string ExportSize;   ///< how it is chosen; with the scale's N and the pixels that stood there
    std::string ExportScale;
    std::string ExportWidth;
    std::string ExportDots;     ///< an inch
    std::string ExportContents; ///< what was ticked; empty before the first time
    std::string PrintContents;
    std::string PrintSize; ///< "tiles" where not all on one sheet; with the scale's N, and how the paper lies
    std::string PrintScale;
    std::string PrintOrientation; ///< "Landscape"
    std::string PlanEnding;       ///< ".html": of the last build plan
    std::string BoxRoom;          ///< "240x160": the area that circuits from a box were last laid in, cm

    bool operator==(const Habits&) const = default;
};

} // namespace pistaro

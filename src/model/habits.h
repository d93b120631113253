// What a user chose last where the program asks for the same again and again: kept with the window's own.
#pragma once

#include <string>

namespace pistaro {

struct Habits {
    std::string ExportFolder;   ///< empty before the first export
    std::string ExportEnding;   ///< ".pdf"
    std::string Paper;          ///< "A4"
    std::string ExportSize;     ///< how it is chosen: "width", "paper", "scale", "sheet" or "tiles"
    std::string ExportScale;    ///< the N of 1:N that its user chose last
    std::string ExportWidth;    ///< pixels
    std::string ExportDots;     ///< an inch
    std::string ExportContents; ///< what was ticked; empty before the first time
    std::string PrintContents;
    std::string PrintSize;        ///< "tiles", or on one sheet at a "round scale" or as large as the "page"
    std::string PrintScale;       ///< the N of the tiles' 1:N
    std::string PrintOrientation; ///< "Landscape"
    std::string PlanEnding;       ///< ".html": of the last build plan
    std::string BoxRoom;          ///< "240x160": the area that circuits from a box were last laid in, cm
    std::string BoxPieces;        ///< "C151L=8,C160=4": what they were last laid from, if not from what is owned
    std::string BoxShapes;        ///< "all": that those of one shape are shown, too, which are found there

    bool operator==(const Habits&) const = default;
};

} // namespace pistaro

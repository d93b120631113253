// A settings file with every section and distinct values.
#pragma once

#include <string>

namespace pistaro {

/// The owned track begins with this line; an empty one ends the section with the warning.
inline std::string SettingsText(const std::string& workingDirectory, const std::string& firstLooseTrackLine) {
    std::string text = "[Working Directory]\r\n" + workingDirectory +
                       "\r\n[Settings]\r\nMidX=10\r\nMidY=-20.5\r\nZoom=400\r\nMWid=200\r\n"
                       "[Units]\r\nType=1\r\nCurr=GBP\r\n[Grid]\r\nType=1\r\nStep=5\r\n"
                       "[Room]\r\n 2 \r\n         0         0    0\r\n       300      -100    1\r\n.5\r\n"
                       "[Colors]\r\nBackground=1\r\nInactive=2\r\nRail=3\r\nNonOwned=4\r\nOwned=5\r\nActive=6\r\n";
    const auto section = [&](const std::string& header, const std::string& first) {
        text += header + "\r\n" + first + "\r\n";
        for (int i = 1; i < 28; ++i)
            text += "C160=0\r\n";
    };
    section("[Best Prices]", "C151=2.5");
    section("[My Loose Track]", firstLooseTrackLine);
    return text;
}

} // namespace pistaro

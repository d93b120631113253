// Tracks from texts and back.
#include "support/chain.h"

#include "storage/settings_file.h"

#include <sstream>

namespace pistaro {

std::vector<std::string> Codes(const std::string& text) {
    std::istringstream words(text);
    std::vector<std::string> codes;
    for (std::string code; words >> code;)
        codes.push_back(code);
    return codes;
}

std::vector<int> RowsOf(const std::string& codes) {
    std::vector<int> rows;
    for (const std::string& code : Codes(codes))
        rows.push_back(Pieces().FindRow(code));
    return rows;
}

Track Chain(const std::string& codes) {
    Track track;
    track.ElementCodes = Codes(codes);
    return track;
}

Project ProjectOf(const std::string& track1, const std::string& track2, const std::string& track3) {
    Project project = StartUp(InitialSettings(Pieces()));
    project.Design.Circuit.Tracks[0].ElementCodes = Codes(track1);
    project.Design.Circuit.Tracks[1].ElementCodes = Codes(track2);
    project.Design.Circuit.Tracks[2].ElementCodes = Codes(track3);
    return project;
}

std::string CodesOf(const Track& track) {
    std::string text;
    for (const std::string& code : track.ElementCodes)
        text += (text.empty() ? "" : " ") + code;
    return text;
}

} // namespace pistaro

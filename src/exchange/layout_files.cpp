#include "exchange/layout_files.h"

#include "exchange/layout_json.h"
#include "layout/placement.h"
#include "text/crlf_lines.h"

#include <array>
#include <charconv>

namespace pistaro {

namespace {

constexpr const char* Columns = "track,index,code,name,x,y,heading,exit_x,exit_y,exit_heading,corner1_x,corner1_y,"
                                "corner2_x,corner2_y,corner3_x,corner3_y,corner4_x,corner4_y";

bool IsWanted(int track, int wanted) { return wanted == AllTracks || track == wanted; }

/// A text as a field: within quotes where it holds what parts fields.
std::string Quoted(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

void AddField(std::string& line, float value) {
    std::array<char, 32> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value == 0 ? 0 : value).ptr;
    line.append(",").append(digits.data(), end);
}

void AddCursor(std::string& line, const BuildCursor& cursor) {
    AddField(line, cursor.CursorX);
    AddField(line, cursor.CursorY);
    AddField(line, cursor.CursorHeading);
}

void AddTrack(CrLfLines& lines, const Catalogue& catalogue, const Track& track, int number) {
    WalkTrack(catalogue, track, [&](int index, const PiecePlacement* placement, const BuildCursor& entry) {
        const std::string& code = track.ElementCodes[static_cast<std::size_t>(index)];
        const CatalogueEntry* const piece = catalogue.Find(code);
        std::string line = std::to_string(number) + ',' + std::to_string(index) + ',' + Quoted(code) + ',' +
                           Quoted(piece == nullptr ? "" : piece->LongName);
        AddCursor(line, entry);
        AddCursor(line, placement == nullptr ? entry : placement->Exit);
        if (placement == nullptr) {
            line += ",,,,,,,,";
        } else {
            for (const WorldPoint corner : placement->Corners.InOrder()) {
                AddField(line, corner.X);
                AddField(line, corner.Y);
            }
        }
        lines << line;
    });
}

} // namespace

std::string LayoutJsonFile(const Catalogue& catalogue, const Circuit& circuit, int track) {
    Json layout = LayoutJson(catalogue, circuit);
    if (track != AllTracks) layout["tracks"] = Json::array({layout["tracks"][static_cast<std::size_t>(track)]});
    return Line(layout) + '\n';
}

std::string LayoutCsvFile(const Catalogue& catalogue, const Circuit& circuit, int track) {
    CrLfLines lines;
    lines << Columns;
    for (int at = 0; at < TrackCount; ++at) {
        if (IsWanted(at, track)) AddTrack(lines, catalogue, circuit.Tracks[static_cast<std::size_t>(at)], at + 1);
    }
    return lines.Take();
}

} // namespace pistaro

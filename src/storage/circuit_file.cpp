// The circuit file, line by line in the order of its lines.
#include "storage/circuit_file.h"

#include "platform/files.h"
#include "storage/line_reader.h"
#include "storage/room_block.h"
#include "text/crlf_lines.h"
#include "text/number_text.h"
#include "text/windows1252.h"

namespace pistaro {

namespace {

constexpr std::string_view TrackHeader = "[Track";

ViewSettings ReadView(LineReader& lines) {
    lines.Next("[Settings]");
    const float centreX = lines.BarPlaceIn(lines.Next("the centre X"));
    const float centreY = lines.BarPlaceIn(lines.Next("the centre Y"));
    ViewSettings view;
    view.MidX = lines.BarPlaceIn(lines.Next("the current X"));
    view.MidY = lines.BarPlaceIn(lines.Next("the current Y"));
    view.Width = lines.NextSingle("the window width");
    view.MWid = lines.BarPlaceIn(lines.Next("the largest displacement"));
    view.HMov = BarAround(centreX, view.MWid, view.MidX);
    view.VMov = BarAround(centreY, view.MWid, view.MidY);
    return view;
}

/// Reads a track up to and including the header of the next one, or to the end of the file.
Track ReadTrack(LineReader& lines, int number) {
    const std::string ofTrack = " of track " + std::to_string(number);
    Track track;
    track.TrackStartX = lines.NextSingle("the start X" + ofTrack);
    track.TrackStartY = lines.NextSingle("the start Y" + ofTrack);
    track.TrackStartHeading = lines.NextSingle("the start angle" + ofTrack);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.Next("an element" + ofTrack);
        if (line.starts_with(TrackHeader)) break;
        if (track.ElementCodes.size() == MaxElements) {
            throw SubscriptOutOfRange(lines.Here("a track holds at most " + std::to_string(MaxElements) + " elements"));
        }
        track.ElementCodes.push_back(Utf8FromWindows1252(line));
    }
    return track;
}

void WriteView(CrLfLines& lines, const ViewSettings& view) {
    const double reach = (static_cast<double>(view.VMov.Maximum) - view.VMov.Minimum) / 2;
    lines << "[Settings]" << NumberText(view.HMov.Minimum + reach) << NumberText(view.VMov.Minimum + reach)
          << NumberText(view.HMov.Value) << NumberText(view.VMov.Value) << NumberText(view.Width) << NumberText(reach);
}

void WriteTrack(CrLfLines& lines, const Track& track, int index) {
    lines << "[Track " + std::to_string(index) + "]" << NumberText(track.TrackStartX) << NumberText(track.TrackStartY)
          << NumberText(track.TrackStartHeading);
    for (const std::string& code : track.ElementCodes)
        lines << Windows1252FromUtf8(code);
}

} // namespace

Design ParseCircuit(std::string_view bytes, const std::string& name) {
    LineReader lines(bytes, name);
    Design design;
    design.View = ReadView(lines);
    lines.Next("[Room]");
    design.Room = ReadRoomBlock(lines);
    lines.Next("[Track 0]");
    int number = 0;
    for (Track& track : design.Circuit.Tracks)
        track = ReadTrack(lines, ++number);
    return design;
}

Design ReadCircuit(const std::filesystem::path& path) {
    return ParseCircuit(ReadFile(path, MostFileBytes), TextFromPath(path));
}

std::string CircuitBytes(const Design& design) {
    CrLfLines lines;
    WriteView(lines, design.View);
    lines << "[Room]";
    for (const std::string& line : RoomBlockLines(design.Room))
        lines << line;
    int index = 0;
    for (const Track& track : design.Circuit.Tracks)
        WriteTrack(lines, track, index++);
    return lines.Take();
}

std::string WriteCircuit(const std::filesystem::path& path, const Design& design) {
    std::string bytes = CircuitBytes(design);
    ParseCircuit(bytes, TextFromPath(path)); // what could not be read again must not take the old file's place
    ReplaceFile(path, bytes);
    return bytes;
}

} // namespace pistaro

// Room block: " 3 ", then three lines of 10, 10 and 5 columns, then the angle.
#include "storage/room_block.h"

#include "text/number_text.h"

namespace pistaro {

namespace {

constexpr std::size_t CoordinateWidth = 10;
constexpr std::size_t FlagWidth = 5;

/// Columns of a line that may end before them.
std::string_view Columns(std::string_view line, std::size_t from, std::size_t width) {
    return from < line.size() ? line.substr(from, width) : std::string_view();
}

RoomPoint ReadPoint(LineReader& lines, int number) {
    const std::string_view line = lines.Next("room point " + std::to_string(number));
    return {lines.IntegerIn(Columns(line, 0, CoordinateWidth)),
            lines.IntegerIn(Columns(line, CoordinateWidth, CoordinateWidth)),
            lines.IntegerIn(Columns(line, 2 * CoordinateWidth, FlagWidth))};
}

std::string PointLine(const RoomPoint& point) {
    const auto field = [](int value, std::size_t width) { return RightAligned(SignedNumberText(value), width); };
    return field(point.X, CoordinateWidth) + field(point.Y, CoordinateWidth) + field(point.Line, FlagWidth);
}

} // namespace

int RoomPointCountIn(const LineReader& lines, std::string_view countLine) {
    const double count = lines.DoubleIn(countLine);
    if (const auto whole = RoundedWithin(count, 0, MaxRoomPoints)) return *whole;
    throw SubscriptOutOfRange(lines.Here("a room has 0 to " + std::to_string(MaxRoomPoints) + " points, not " +
                                         NumberText(RoundHalfEven(count))));
}

RoomPolygon ReadRoomBlock(LineReader& lines) {
    RoomPolygon room;
    const int count = RoomPointCountIn(lines, lines.Next("the number of room points"));
    for (int number = 1; number <= count; ++number)
        room.Points.push_back(ReadPoint(lines, number));
    room.Angle = lines.NextSingle("the room angle");
    return room;
}

std::vector<std::string> RoomBlockLines(const RoomPolygon& room) {
    std::vector<std::string> lines{SignedNumberText(static_cast<int>(room.Points.size())) + ' '};
    for (const RoomPoint& point : room.Points)
        lines.push_back(PointLine(point));
    lines.push_back(NumberText(room.Angle));
    return lines;
}

} // namespace pistaro

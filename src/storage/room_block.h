// The room as both kinds of file hold it: count, points in columns, angle.
#pragma once

#include "model/room_polygon.h"
#include "storage/line_reader.h"

#include <string>
#include <vector>

namespace pistaro {

/// Reads the block's lines after its header. Faults: more points than a room holds, or fewer lines than it says.
RoomPolygon ReadRoomBlock(LineReader& lines);

/// The number of points that a count line says. Faults below 0 and above MaxRoomPoints.
int RoomPointCountIn(const LineReader& lines, std::string_view countLine);

/// The block's lines after its header.
std::vector<std::string> RoomBlockLines(const RoomPolygon& room);

} // namespace pistaro

// The circuit being designed: three tracks, each a chain of pieces laid end to end from its own start.
#pragma once

#include <array>
#include <compare>
#include <string>
#include <vector>

namespace pistaro {

inline constexpr int TrackCount = 3;
inline constexpr int MaxElements = 501;      ///< pieces a track holds at most
inline constexpr int AllTracks = TrackCount; ///< the current track's value when all tracks are chosen
inline constexpr float TrackSpacing = 15.5F; ///< cm, one Scalextric track width: start points and moves

/// A point on the reference edge of the track (cm) and the heading straight across it to the other edge (radians).
/// The direction of travel is the heading turned a quarter turn anticlockwise; y points up.
struct BuildCursor {
    float CursorX = 0;
    float CursorY = 0;
    float CursorHeading = 0;

    bool operator==(const BuildCursor&) const = default;
};

struct Track {
    std::vector<std::string> ElementCodes;
    float TrackStartX = 0; ///< cm
    float TrackStartY = 0;
    float TrackStartHeading = 0; ///< radians

    /// -1 when the track is empty.
    int ElementLastIndex() const { return static_cast<int>(ElementCodes.size()) - 1; }
    BuildCursor Start() const { return {TrackStartX, TrackStartY, TrackStartHeading}; }

    bool operator==(const Track&) const = default;
};

struct Circuit {
    std::array<Track, TrackCount> Tracks;

    bool operator==(const Circuit&) const = default;
};

/// A piece by its track and its place there.
struct PieceAddress {
    int Track = 0; ///< 0..2
    int Element = 0;

    auto operator<=>(const PieceAddress&) const = default;
};

/// A circuit of three empty tracks with their start points: track 1 at 0, tracks 2 and 3 one spacing to the right and
/// to the left of it.
Circuit EmptyCircuit();

} // namespace pistaro

// Circuits from a box of pieces: what is asked for, what is told of those found, and what is done with them.
#pragma once

#include "commands/session.h"
#include "model/boxed_set.h"
#include "search/laying.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pistaro {

/// A rectangle, cm.
struct Area {
    int Width = 0, Height = 0;

    bool operator==(const Area&) const = default;
};

/// An empty circuit in a room of that size around a place, all of it in view.
Design EmptyArea(Area area, int middleX = 0, int middleY = 0);

/// Whether the room has a wall, so that circuits can be laid in it.
bool HasWalls(const RoomPolygon& room);

/// What lies around circuits that are found: the room and the view, other tracks, and which track a circuit becomes.
struct Surroundings {
    pistaro::Design Design;
    int Track = 0;

    pistaro::Design With(const pistaro::Track& circuit) const;
};

/// Whether other tracks with pieces lie there.
bool HasOtherTracks(const Surroundings& around);

/// What is wished for.
struct BoxWish {
    PieceBox Box = {};
    std::optional<pistaro::Area> Area = {}; ///< else the room of the design
    int MiddleX = 0, MiddleY = 0;           ///< of the area, cm
    int FromWalls = 0;                      ///< how far circuits keep from walls, cm
    pistaro::MustHaves MustHave = {};
    std::optional<int> Varied = {};     ///< the design's track that is laid in another way, beside the others
    std::optional<TrackPart> Kept = {}; ///< of that track
    int Count = 10;
    std::uint64_t Seed = 1;
};

/// Whether both wish for the same circuits, however many of them.
bool IsForTheSame(const BoxWish& one, const BoxWish& other);

/// A circuit of that track alone.
Circuit TrackAlone(const Circuit& circuit, int track);

Surroundings SurroundingsFor(const Session& session, const BoxWish& wish);

/// The search's task. Fault "Refused" where nothing can come of it, which says why.
LayingTask TaskFor(const Session& session, const BoxWish& wish);

/// Why these wishes can never be fulfilled, for certain: too few curves, too small a room; empty where they may be.
std::string WhyNeverFulfilled(const Session& session, const BoxWish& wish);

/// Whether the design lies in the room that the settings hold, which every new design begins with.
bool IsRoomOfSettings(const Session& session);

/// The room's extent: "400 × 300 cm"; empty where it has no walls.
std::string RoomSizeText(const RoomPolygon& room);

/// Takes the box for all that is owned, after a question where something else was, and writes that into the settings.
void OwnBox(Session& session, const PieceBox& box);

/// The track of which variations are made: the edited one where it has pieces, or else the first that has some.
int VariedTrack(const Session& session);

/// The pieces of that track.
PieceBox BoxOfTrack(const Session& session, int track);

/// What of all that can be asked for that track has.
MustHaves MustHavesOfTrack(const Session& session, int track);

/// So many elements of the track, with where they lie.
TrackPart PartOf(const Catalogue& catalogue, const Track& track, int first, int count);

/// The sets that a shop sells: those of the file beside the settings, else an example.
BoxedSets SetsOf(const Session& session);

/// Why no other circuits can be made of the design's pieces; empty when it can be tried.
std::string WhyNotVary(const Session& session);

/// Puts a found circuit in the place of the design, which is asked for as by Load unless it is `opened`: what was put
/// there like this before. One step of undo. A variation is named after the design that it varies. Gives whether it is
/// there now.
bool OpenAsNew(Session& session, bool varies, const Surroundings& around, const Track& track,
               std::optional<Circuit>& opened);

/// The same around circuits, but the other tracks of the design as they lie now; and its room where that has no walls,
/// since the rectangle was then for the search alone.
Surroundings WithPresentTracks(const Session& session, Surroundings around);

/// Writes found circuits into files that the user names by one name, all or none: a number is put behind it where they
/// are several. Gives whether they were written.
bool KeepAsFiles(Session& session, const Surroundings& around, const std::vector<Track>& tracks);

} // namespace pistaro

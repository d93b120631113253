#include "editor/piece_dropping.h"

#include "catalogue/track_geometry.h"
#include "editor/building.h"
#include "editor/palette_pieces.h"
#include "editor/status_text.h"
#include "editor/track_editing.h"
#include "layout/track_gap.h"
#include "platform/fault.h"

#include <cmath>
#include <limits>

namespace pistaro {

namespace {

/// The cursor from which a piece leads to a start, so many times.
BuildCursor Before(const PieceKind& kind, BuildCursor start, int times) {
    const float turn = ExitOf(kind, BuildCursor{}).CursorHeading;
    for (int i = 0; i < times; ++i) {
        const float heading = NormaliseAngle(static_cast<float>(double{start.CursorHeading} - turn));
        const BuildCursor exit = ExitOf(kind, BuildCursor{0, 0, heading});
        start = {start.CursorX - exit.CursorX, start.CursorY - exit.CursorY, heading};
    }
    return start;
}

/// The middle of the track where a piece ends or begins.
WorldPoint MiddleAt(const BuildCursor& cursor) {
    const double half = TrackGeometry::ScalextricWidth / 2.0;
    return {static_cast<float>(cursor.CursorX + half * std::cos(double{cursor.CursorHeading})),
            static_cast<float>(cursor.CursorY + half * std::sin(double{cursor.CursorHeading}))};
}

double DistanceBetween(WorldPoint a, WorldPoint b) { return std::hypot(double{a.X} - b.X, double{a.Y} - b.Y); }

/// Calls visit(place) for each joint of a track, from its start to its end.
template <typename Visit>
void ForEachJoint(const Catalogue& catalogue, const Circuit& circuit, int number, Visit visit) {
    const Track& track = circuit.Tracks[static_cast<std::size_t>(number)];
    DropPlace place{.Track = number, .Element = 0, .At = track.Start(), .CodeBefore = {}};
    const BuildCursor end =
        WalkTrack(catalogue, track, [&](int element, const PiecePlacement*, const BuildCursor& entry) {
            place.Element = element;
            place.At = entry;
            visit(place);
            place.CodeBefore = track.ElementCodes[static_cast<std::size_t>(element)];
        });
    place.Element = track.ElementLastIndex() + 1;
    place.At = end;
    visit(place);
}

/// The joint before an element of the current track, or after its last.
DropPlace JointAt(const Catalogue& catalogue, const Project& project, int element) {
    DropPlace found;
    ForEachJoint(catalogue, project.Design.Circuit, project.EditState.CurrentTrack, [&](const DropPlace& place) {
        if (place.Element == element) found = place;
    });
    return found;
}

Track& TrackOf(Design& design, const DropPlace& place) {
    return design.Circuit.Tracks[static_cast<std::size_t>(place.Track)];
}

void Insert(Track& track, const DropPlace& place, const HeldPiece& held) {
    track.ElementCodes.insert(track.ElementCodes.begin() + place.Element, static_cast<std::size_t>(held.Times),
                              held.Code);
}

bool IsBeforeStart(const Track& track, const DropPlace& place) {
    return place.Element == 0 && !track.ElementCodes.empty() && place.At != track.Start();
}

/// The place's track with the piece laid there.
Track TrackWith(const Project& project, const DropPlace& place, const HeldPiece& held) {
    Track track = project.Design.Circuit.Tracks[static_cast<std::size_t>(place.Track)];
    if (IsBeforeStart(track, place)) {
        track.TrackStartX = place.At.CursorX;
        track.TrackStartY = place.At.CursorY;
        track.TrackStartHeading = place.At.CursorHeading;
    }
    if (place.Replaces)
        track.ElementCodes[static_cast<std::size_t>(place.Element)] = held.Code;
    else
        Insert(track, place, held);
    return track;
}

} // namespace

std::optional<DropPlace> ButtonPlace(const Catalogue& catalogue, const Project& project, const HeldPiece& held) {
    const EditState& edit = project.EditState;
    const CatalogueEntry* const piece = catalogue.Find(held.Code);
    if (piece == nullptr || edit.ShowsAllTracks()) return std::nullopt;
    const bool replaces =
        held.Times == 1 && !piece->IsBasic() && FitsSelected(catalogue, project.Design.Circuit, edit, held.Code);
    if (replaces || (edit.InsertMode && edit.SelectedElement() >= 0))
        return SelectedPlace(catalogue, project, replaces);
    const Track& track = *EditedTrack(project.Design.Circuit, edit);
    if (IsRing(catalogue, track)) return std::nullopt;
    return JointAt(catalogue, project, track.ElementLastIndex() + 1);
}

std::optional<DropPlace> SelectedPlace(const Catalogue& catalogue, const Project& project, bool replaces) {
    const EditState& edit = project.EditState;
    if (edit.ShowsAllTracks() || edit.SelectedElement() < 0) return std::nullopt;
    DropPlace place = JointAt(catalogue, project, edit.SelectedElement());
    place.Replaces = replaces;
    return place;
}

std::optional<DropPlace> NearestPlace(const Catalogue& catalogue, const Project& project, const HeldPiece& held,
                                      WorldPoint point, double reach) {
    const CatalogueEntry* const piece = catalogue.Find(held.Code);
    const EditState& edit = project.EditState;
    if (piece == nullptr || edit.ShowsAllTracks()) return std::nullopt;
    std::optional<DropPlace> joint; // within reach
    std::optional<DropPlace> openEnd;
    double toEnd = std::numeric_limits<double>::infinity();
    for (int number = 0; number < TrackCount; ++number) {
        const Track& track = project.Design.Circuit.Tracks[static_cast<std::size_t>(number)];
        if (track.ElementCodes.empty() && number != edit.CurrentTrack) continue;
        const bool ring = IsRing(catalogue, track);
        ForEachJoint(catalogue, project.Design.Circuit, number, [&](DropPlace place) {
            const double distance = DistanceBetween(MiddleAt(place.At), point);
            const bool isStart = place.Element == 0;
            const bool isOpenEnd = !ring && (isStart || place.Element > track.ElementLastIndex());
            if (isStart && isOpenEnd && !track.ElementCodes.empty())
                place.At = Before(piece->Kind, place.At, held.Times);
            if (distance < reach) {
                reach = distance;
                joint = place;
            }
            if (isOpenEnd && distance < toEnd) {
                toEnd = distance;
                openEnd = place;
            }
        });
    }
    return joint ? joint : openEnd;
}

void DropPiece(const Catalogue& catalogue, Project& project, const DropPlace& place, const HeldPiece& held) {
    Track& track = TrackOf(project.Design, place);
    if (catalogue.Find(held.Code) == nullptr) throw InvalidProcedureCall("there is no piece " + held.Code);
    RequireRoom(track, held.Times);
    EditState& edit = project.EditState;
    if (place.Track != edit.CurrentTrack) ChooseTrack(edit, place.Track);
    if (IsBeforeStart(track, place)) PlaceStart(project.Design, edit, place.At);
    Insert(track, place, held);
    edit.Select(place.Element + held.Times - 1);
    edit.DataChanged = true;
}

std::vector<std::string> DisplacedPieces(const Project& project, const DropPlace& place) {
    const Track& track = project.Design.Circuit.Tracks[static_cast<std::size_t>(place.Track)];
    if (place.Replaces || IsBeforeStart(track, place)) return {};
    return {track.ElementCodes.begin() + place.Element, track.ElementCodes.end()};
}

int LeftWith(const Catalogue& catalogue, const Project& project, const DropPlace& place, const HeldPiece& held) {
    Circuit circuit = project.Design.Circuit;
    circuit.Tracks[static_cast<std::size_t>(place.Track)] = TrackWith(project, place, held);
    return LeftInBox(catalogue, CountUsed(catalogue, circuit), project.Stock, *catalogue.Find(held.Code));
}

std::string GapWith(const Catalogue& catalogue, const Project& project, const DropPlace& place, const HeldPiece& held) {
    return GapText(GapOf(catalogue, TrackWith(project, place, held)), project.Preferences.Units);
}

} // namespace pistaro

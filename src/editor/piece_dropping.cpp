#include "editor/piece_dropping.h"

#include "catalogue/track_geometry.h"
#include "editor/status_text.h"
#include "editor/track_editing.h"
#include "layout/track_gap.h"
#include "platform/fault.h"

#include <cmath>

namespace pistaro {

namespace {

/// The cursor from which a piece leads to a start.
BuildCursor Before(const PieceKind& kind, const BuildCursor& start) {
    const float turn = ExitOf(kind, BuildCursor{}).CursorHeading;
    const float heading = NormaliseAngle(static_cast<float>(double{start.CursorHeading} - turn));
    const BuildCursor exit = ExitOf(kind, BuildCursor{0, 0, heading});
    return {start.CursorX - exit.CursorX, start.CursorY - exit.CursorY, heading};
}

/// The middle of the track where a piece ends or begins.
WorldPoint MiddleAt(const BuildCursor& cursor) {
    const double half = TrackGeometry::ScalextricWidth / 2.0;
    return {static_cast<float>(cursor.CursorX + half * std::cos(double{cursor.CursorHeading})),
            static_cast<float>(cursor.CursorY + half * std::sin(double{cursor.CursorHeading}))};
}

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

Track& TrackOf(Design& design, const DropPlace& place) {
    return design.Circuit.Tracks[static_cast<std::size_t>(place.Track)];
}

bool IsBeforeStart(const Track& track, const DropPlace& place) {
    return place.Element == 0 && !track.ElementCodes.empty() && place.At != track.Start();
}

} // namespace

std::optional<DropPlace> ButtonPlace(const Catalogue& catalogue, const Project& project) {
    const EditState& edit = project.EditState;
    if (edit.ShowsAllTracks()) return std::nullopt;
    const bool inserts = edit.InsertMode && edit.SelectedElement() >= 0;
    std::optional<DropPlace> found;
    ForEachJoint(catalogue, project.Design.Circuit, edit.CurrentTrack, [&](const DropPlace& place) {
        if (!inserts || place.Element == edit.SelectedElement()) found = place;
    });
    return found;
}

std::optional<DropPlace> NearestPlace(const Catalogue& catalogue, const Project& project, const std::string& code,
                                      WorldPoint point, double reach) {
    const CatalogueEntry* const piece = catalogue.Find(code);
    const EditState& edit = project.EditState;
    if (piece == nullptr || edit.ShowsAllTracks()) return std::nullopt;
    std::optional<DropPlace> nearest;
    for (int number = 0; number < TrackCount; ++number) {
        const Track& track = project.Design.Circuit.Tracks[static_cast<std::size_t>(number)];
        if (track.ElementCodes.empty() && number != edit.CurrentTrack) continue;
        const bool ring = IsRing(catalogue, track);
        ForEachJoint(catalogue, project.Design.Circuit, number, [&](const DropPlace& place) {
            const WorldPoint joint = MiddleAt(place.At);
            const double distance = std::hypot(double{joint.X} - point.X, double{joint.Y} - point.Y);
            if (distance >= reach) return;
            reach = distance;
            nearest = place;
            const bool before = place.Element == 0 && !track.ElementCodes.empty() && !ring;
            if (before) nearest->At = Before(piece->Kind, place.At);
        });
    }
    return nearest;
}

void DropPiece(const Catalogue& catalogue, Project& project, const DropPlace& place, const std::string& code) {
    Track& track = TrackOf(project.Design, place);
    if (catalogue.Find(code) == nullptr) throw InvalidProcedureCall("there is no piece " + code);
    if (track.ElementCodes.size() >= MaxElements)
        throw SubscriptOutOfRange("a track holds at most " + std::to_string(MaxElements) + " elements");
    EditState& edit = project.EditState;
    if (place.Track != edit.CurrentTrack) ChooseTrack(edit, place.Track);
    if (IsBeforeStart(track, place)) PlaceStart(project.Design, edit, place.At);
    track.ElementCodes.insert(track.ElementCodes.begin() + place.Element, code);
    edit.Select(place.Element);
    edit.DataChanged = true;
}

std::string GapWith(const Catalogue& catalogue, const Project& project, const DropPlace& place,
                    const std::string& code) {
    Track track = project.Design.Circuit.Tracks[static_cast<std::size_t>(place.Track)];
    if (IsBeforeStart(track, place)) {
        track.TrackStartX = place.At.CursorX;
        track.TrackStartY = place.At.CursorY;
        track.TrackStartHeading = place.At.CursorHeading;
    }
    track.ElementCodes.insert(track.ElementCodes.begin() + place.Element, code);
    return GapText(GapOf(catalogue, track), project.Preferences.Units);
}

} // namespace pistaro

#include "editor/track_editing.h"

#include "layout/angles.h"
#include "layout/exit.h"
#include "layout/track_gap.h"
#include "platform/fault.h"
#include "text/minus_text.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr double TrackTurn = PiValue / 16;
constexpr double RoomTurn = PiValue / 32;

void MoveTrack(Track& track, int stepsRight, int stepsUp) {
    track.TrackStartX = static_cast<float>(track.TrackStartX + double{TrackSpacing} * stepsRight);
    track.TrackStartY = static_cast<float>(track.TrackStartY + double{TrackSpacing} * stepsUp);
}

/// The angle turned; each way wraps at its own end only, so that a heading a file put beyond the other end stays there.
float Turned(float angle, double by) {
    const auto turned = static_cast<float>(angle + by);
    return (by > 0 ? turned > TwoPi : turned < 0) ? NormaliseAngle(turned) : turned;
}

} // namespace

void DeleteElement(Design& design, EditState& edit) {
    if (edit.SelectedElement() < 0) return;
    Track& track = *EditedTrack(design.Circuit, edit);
    const ElementRun run = edit.SelectedRun(track.ElementLastIndex());
    const auto first = track.ElementCodes.begin() + run.First;
    track.ElementCodes.erase(first, first + run.Count);
    edit.Select(std::min(run.First, track.ElementLastIndex()));
    edit.DataChanged = true;
}

void MoveTracks(Design& design, EditState& edit, int stepsRight, int stepsUp) {
    if (Track* const track = EditedTrack(design.Circuit, edit)) {
        MoveTrack(*track, stepsRight, stepsUp);
    } else {
        for (Track& each : design.Circuit.Tracks)
            MoveTrack(each, stepsRight, stepsUp);
    }
    edit.DataChanged = true;
}

void Rotate(Design& design, EditState& edit, Rotation rotation) {
    const int sign = rotation == Rotation::Left ? 1 : -1;
    if (Track* const track = EditedTrack(design.Circuit, edit)) {
        track->TrackStartHeading = Turned(track->TrackStartHeading, sign * TrackTurn);
    } else {
        design.Room.Angle = Turned(design.Room.Angle, sign * RoomTurn);
    }
    edit.DataChanged = true;
}

void MirrorTrack(Design& design, EditState& edit) {
    Track* const track = EditedTrack(design.Circuit, edit);
    if (track == nullptr) return;
    std::ranges::transform(track->ElementCodes, track->ElementCodes.begin(), SwappedHand);
    edit.DataChanged = true;
}

void InvertTrack(Design& design, EditState& edit) {
    Track* const track = EditedTrack(design.Circuit, edit);
    if (track == nullptr) return;
    std::ranges::reverse(track->ElementCodes);
    MirrorTrack(design, edit);
}

void MirrorFromSelected(Design& design, EditState& edit) {
    const int selected = edit.SelectedElement();
    if (selected < 0) return;
    std::vector<std::string>& codes = EditedTrack(design.Circuit, edit)->ElementCodes;
    std::transform(codes.begin() + selected, codes.end(), codes.begin() + selected, SwappedHand);
    edit.DataChanged = true;
}

bool IsRing(const Catalogue& catalogue, const Track& track) {
    constexpr double mostCm = 1;
    constexpr double mostTurn = PiValue / 180;
    const TrackGap gap = GapOf(catalogue, track);
    return !track.ElementCodes.empty() && gap.Distance <= mostCm && std::fabs(gap.Angle) <= mostTurn;
}

void StartAtSelected(const Catalogue& catalogue, Design& design, EditState& edit) {
    const int selected = edit.SelectedElement();
    if (selected < 0) return;
    Track& track = *EditedTrack(design.Circuit, edit);
    Pose start = track.Start();
    for (int index = 0; index < selected; ++index) {
        const CatalogueEntry* const piece = catalogue.Find(track.ElementCodes[static_cast<std::size_t>(index)]);
        if (piece != nullptr) start = ExitOf(piece->Kind, start);
    }
    std::rotate(track.ElementCodes.begin(), track.ElementCodes.begin() + selected, track.ElementCodes.end());
    edit.Select(0);
    PlaceStart(design, edit, start);
}

BuildCursor Moved(const BuildCursor& start, double right, double up) {
    constexpr double perCm = 10;
    const auto rounded = [](double place) { return static_cast<float>(std::round(place * perCm) / perCm); };
    return {rounded(start.CursorX + right), rounded(start.CursorY + up), start.CursorHeading};
}

BuildCursor TurnedAbout(const BuildCursor& start, WorldPoint middle, int steps) {
    const double turn = steps * TrackTurn;
    const double x = double{start.CursorX} - middle.X;
    const double y = double{start.CursorY} - middle.Y;
    float heading = start.CursorHeading;
    for (int step = 0; step < std::abs(steps); ++step)
        heading = Turned(heading, steps < 0 ? -TrackTurn : TrackTurn);
    return {static_cast<float>(middle.X + x * std::cos(turn) - y * std::sin(turn)),
            static_cast<float>(middle.Y + x * std::sin(turn) + y * std::cos(turn)), heading};
}

std::string MoveText(const BuildCursor& from, const BuildCursor& to, const Units& units) {
    const auto length = [&units](float cm) {
        return WithMinus(NumberText(std::round(cm / units.UnitFactor() * 10) / 10));
    };
    return length(to.CursorX - from.CursorX) + ", " + length(to.CursorY - from.CursorY) + " " + units.Name();
}

std::string TurnText(int steps) {
    constexpr double halfTurn = 180; // degrees
    const char* const hand = steps == 0 ? "" : steps > 0 ? " left" : " right";
    return NumberText(std::abs(steps) * TrackTurn / PiValue * halfTurn) + "°" + hand;
}

void PlaceStart(Design& design, EditState& edit, const BuildCursor& start) {
    Track* const track = EditedTrack(design.Circuit, edit);
    if (track == nullptr) return;
    track->TrackStartX = start.CursorX;
    track->TrackStartY = start.CursorY;
    track->TrackStartHeading = start.CursorHeading;
    edit.DataChanged = true;
}

void ChooseTrack(EditState& edit, int track) {
    edit.CurrentTrack = track;
    edit.InsertMode = false;
    edit.SelectItAlone();
}

void ChooseAllTracks(EditState& edit) {
    edit.CurrentTrack = AllTracks;
    edit.SelectItAlone();
}

void SelectElement(const Circuit& circuit, EditState& edit, int index) {
    const Track* const track = EditedTrack(circuit, edit);
    if (track == nullptr || index < 0 || index > track->ElementLastIndex()) {
        throw SubscriptOutOfRange("there is no element " + std::to_string(index) + " in the list");
    }
    edit.Select(index);
}

void ExtendSelection(EditState& edit, const EditState& before) {
    if (edit.CurrentTrack != before.CurrentTrack || edit.SelectedElement() < 0) return;
    const int from = before.RunFrom >= 0 ? before.RunFrom : before.SelectedElement();
    edit.SelectItAlone();
    if (from != edit.SelectedElement()) edit.RunFrom = from;
}

} // namespace pistaro

#include "editor/track_editing.h"

#include "layout/angles.h"
#include "platform/fault.h"

#include <algorithm>

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

void SwapHand(std::string& code) {
    const char hand = Hand(code);
    if (hand != 0) code.back() = hand == 'L' ? 'R' : 'L';
}

} // namespace

void DeleteElement(Design& design, EditState& edit) {
    const int selected = edit.SelectedElement();
    if (selected < 0) return;
    Track& track = *EditedTrack(design.Circuit, edit);
    track.ElementCodes.erase(track.ElementCodes.begin() + selected);
    edit.Select(std::min(selected, track.ElementLastIndex()));
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
    std::ranges::for_each(track->ElementCodes, SwapHand);
    edit.DataChanged = true;
}

void InvertTrack(Design& design, EditState& edit) {
    Track* const track = EditedTrack(design.Circuit, edit);
    if (track == nullptr) return;
    std::ranges::reverse(track->ElementCodes);
    MirrorTrack(design, edit);
}

void ChooseTrack(EditState& edit, int track) {
    edit.CurrentTrack = track;
    edit.InsertMode = false;
}

void ChooseAllTracks(EditState& edit) { edit.CurrentTrack = AllTracks; }

void SelectElement(const Circuit& circuit, EditState& edit, int index) {
    const Track* const track = EditedTrack(circuit, edit);
    if (track == nullptr || index < 0 || index > track->ElementLastIndex()) {
        throw SubscriptOutOfRange("there is no element " + std::to_string(index) + " in the list");
    }
    edit.Select(index);
}

} // namespace pistaro

// Commands that change tracks as a whole.
#include "editor/track_editing.h"

#include "platform/fault.h"
#include "render/angles.h"

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

void DeleteElement(Project& project) {
    Track* const track = project.Layout.Current();
    if (track == nullptr || track->CurrentElement < 0) return;
    track->ElementCodes.erase(track->ElementCodes.begin() + track->CurrentElement);
    track->CurrentElement = std::min(track->CurrentElement, track->ElementLastIndex());
    project.DataChanged = true;
}

void MoveTracks(Project& project, int stepsRight, int stepsUp) {
    if (Track* const track = project.Layout.Current()) {
        MoveTrack(*track, stepsRight, stepsUp);
    } else {
        for (Track& each : project.Layout.Tracks)
            MoveTrack(each, stepsRight, stepsUp);
    }
    project.DataChanged = true;
}

void Rotate(Project& project, Rotation rotation) {
    const int sign = rotation == Rotation::Left ? 1 : -1;
    if (Track* const track = project.Layout.Current()) {
        track->TrackStartHeading = Turned(track->TrackStartHeading, sign * TrackTurn);
    } else {
        project.Room.Angle = Turned(project.Room.Angle, sign * RoomTurn);
    }
    project.DataChanged = true;
}

void MirrorTrack(Project& project) {
    Track* const track = project.Layout.Current();
    if (track == nullptr) return;
    std::ranges::for_each(track->ElementCodes, SwapHand);
    project.DataChanged = true;
}

void InvertTrack(Project& project) {
    Track* const track = project.Layout.Current();
    if (track == nullptr) return;
    std::ranges::reverse(track->ElementCodes);
    MirrorTrack(project);
}

void ChooseTrack(Project& project, int track) {
    project.Layout.CurrentTrack = track;
    project.InsertMode = false;
}

void ChooseAllTracks(Project& project) { project.Layout.CurrentTrack = AllTracks; }

void SelectElement(Project& project, int index) {
    Track* const track = project.Layout.Current();
    if (track == nullptr || index < 0 || index > track->ElementLastIndex()) {
        throw SubscriptOutOfRange("there is no element " + std::to_string(index) + " in the list");
    }
    track->CurrentElement = index;
}

} // namespace pistaro

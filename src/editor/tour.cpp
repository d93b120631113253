#include "editor/tour.h"

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

constexpr int CurvesOfAHalf = 4;
constexpr int PiecesOfAHalf = 1 + CurvesOfAHalf;
constexpr std::array Oval{"C160", "C151L", "C151L", "C151L", "C151L", "C160", "C151L", "C151L", "C151L", "C151L"};

constexpr const char* Piece = "cmdElement";

/// How many of the track's elements are those of the oval, from its start on.
int PiecesOfOval(const Track& track) {
    const auto [inTrack, inOval] = std::ranges::mismatch(track.ElementCodes, Oval);
    return static_cast<int>(inOval - Oval.begin());
}

TourStop AtStraight(bool secondHalf, int times) {
    TourStop stop{.Step = secondHalf ? 4 : 1, .Control = Piece, .Tag = "C160"};
    stop.Text = secondHalf ? "Press C160 once more: the straight on the other side."
                           : "Press C160, a standard straight. It is added where the track begins.";
    if (times > 1) stop.Remark = "One straight is enough here: Esc forgets the digit.";
    return stop;
}

TourStop AtDigit(bool secondHalf, int times) {
    TourStop stop{.Step = secondHalf ? 5 : 2, .Control = "lblStatus"};
    stop.Text = secondHalf
                    ? "Type 4 again, for the second half circle."
                    : "Type the digit 4: the next button you press then adds four pieces. The line at the bottom "
                      "of the window shows it.";
    if (times > 1) stop.Remark = "That was " + std::to_string(times) + ". The digit typed last counts: type 4.";
    return stop;
}

TourStop AtCurve(bool secondHalf, int missing, int times) {
    TourStop stop{.Step = secondHalf ? 6 : 3, .Control = Piece, .Tag = "C151L"};
    stop.Text = secondHalf ? "Press C151 under Left: the last curve meets the first straight."
                           : "Press C151 under Left. Each curve turns by 45°, so four make a half circle.";
    if (missing == CurvesOfAHalf) return stop;
    stop.Remark = "One by one works as well: " + std::to_string(missing) + " to go.";
    if (times > missing) stop.Remark += " Esc forgets the digit, which is too many now.";
    return stop;
}

TourStop AtEnd() {
    return {
        .Step = TourSteps + 1,
        .Text =
            "That is an oval: the line at the bottom says closed. Now add what you like: Edit ▸ Undo takes it back, "
            "Circuit ▸ Save keeps it.",
        .Control = "lblStatus"};
}

/// What keeps the pieces from being laid as the tour tells; no remark where nothing does.
TourStop Hindrance(const EditState& edit) {
    if (edit.ShowsAllTracks())
        return {.Remark = "All tracks are chosen: press 1 to build the first one.", .Control = "optTrack", .Tag = "1"};
    if (edit.InsertMode)
        return {
            .Remark =
                "Insert puts pieces before the selected one: press the switch above the pieces to go back to Build.",
            .Control = "cmdInsert"};
    if (edit.System != TrackSystem::Scalextric)
        return {.Remark = "These are the other system's pieces: Pieces ▸ Use Scalextric Track (Ctrl+T) brings back the "
                          "first ones.",
                .Control = "picCircuit"};
    return {.Control = ""};
}

TourStop NextPiece(int laid, int times) {
    const bool secondHalf = laid >= PiecesOfAHalf;
    const int ofHalf = laid % PiecesOfAHalf;
    if (ofHalf == 0) return AtStraight(secondHalf, times);
    if (ofHalf == 1 && times != CurvesOfAHalf) return AtDigit(secondHalf, times);
    return AtCurve(secondHalf, PiecesOfAHalf - ofHalf, times);
}

/// What is told where something else lies behind the oval's pieces.
std::string OtherPieces(const Track& track, int laid) {
    if (laid == 0 && track.ElementCodes.size() > 1)
        return "Something else lies here now. Circuit ▸ New (Ctrl+N) brings back an empty track.";
    return "Now " + track.ElementCodes[static_cast<std::size_t>(laid)] +
           " lies where the oval has another piece. Never mind: Edit ▸ Undo (Ctrl+Z) takes it back.";
}

} // namespace

TourStop TourStopOf(const Project& project, int times) {
    const Track* const track = EditedTrack(project.Design.Circuit, project.EditState);
    const int laid = track == nullptr ? 0 : PiecesOfOval(*track);
    const int there = track == nullptr ? 0 : track->ElementLastIndex() + 1;
    constexpr int all = static_cast<int>(Oval.size());
    if (laid == all && there == all) return AtEnd();
    TourStop stop = NextPiece(std::min(laid, all - 1), times);
    if (TourStop hindrance = Hindrance(project.EditState); !hindrance.Remark.empty()) {
        hindrance.Step = stop.Step;
        hindrance.Text = stop.Text;
        return hindrance;
    }
    if (there > laid) {
        stop.IsAstray = true;
        stop.Remark = OtherPieces(*track, laid);
        stop.Text = "The tour goes on as soon as the oval is right again.";
    }
    return stop;
}

void BeginTour(EditState& edit) {
    edit.CurrentTrack = 0;
    edit.InsertMode = false;
    edit.System = TrackSystem::Scalextric;
}

} // namespace pistaro

// Copy and Paste as rows of the command table, with a clipboard of the test's own.
#include "commands/session.h"
#include "imaging/circuit_picture.h"
#include "layout/overlap.h"
#include "support/chain.h"
#include "support/fault_of.h"
#include "support/named_windows.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class Clipboard : public NamedWindows {
public:
    Clipping Copied;
    std::string Text;

    void PutOnClipboard(const Clipping& clipping) override { Copied = clipping; }
    std::string ClipboardText() override { return Text; }
};

class ClipboardCommands : public testing::Test {
protected:
    ClipboardCommands() { session_.Windows = &clipboard_; }

    void Run(const char* id) { session_.Run(*session_.Commands.Find(id)); }
    std::string Track1() const { return CodesOf(session_.Project.Design.Circuit.Tracks[0]); }

    OffscreenGraphics graphics_;
    Clipboard clipboard_;
    ScriptedPrompts user_;
    Session session_{Pieces(), user_, ProjectOf("C160 C160 C151L", "C157"), {}};
};

TEST_F(ClipboardCommands, CopyTakesTheCurrentTracksListAndPictures) {
    Run("copy");

    EXPECT_EQ(clipboard_.Copied.Text, "C160 x2, C151L");
    EXPECT_TRUE(clipboard_.Copied.Png.starts_with("\x89PNG"));
    EXPECT_NE(clipboard_.Copied.Svg.find("data-code=\"C151L\""), std::string::npos);
    EXPECT_EQ(clipboard_.Copied.Svg.find("data-code=\"C157\""), std::string::npos);
}

TEST_F(ClipboardCommands, CopyTakesALineForEachTrackWhenAllAreChosen) {
    session_.Project.EditState.CurrentTrack = AllTracks;

    Run("copy");

    EXPECT_EQ(clipboard_.Copied.Text, "C160 x2, C151L\nC157");
    EXPECT_NE(clipboard_.Copied.Svg.find("data-code=\"C157\""), std::string::npos);
}

TEST_F(ClipboardCommands, WhatIsCopiedIsPastedAtTheEndAsOneStep) {
    Run("copy");
    clipboard_.Text = clipboard_.Copied.Text;

    Run("paste");
    EXPECT_EQ(Track1(), "C160 C160 C151L C160 C160 C151L");

    Run("undo");
    EXPECT_EQ(Track1(), "C160 C160 C151L");
}

TEST_F(ClipboardCommands, CopyTellsWhatWentOntoTheClipboard) {
    Run("copy");
    EXPECT_EQ(clipboard_.Brief, "Copied 3 pieces of track 1: the list as text, and a picture of it");

    session_.Project.EditState.CurrentTrack = AllTracks;
    Run("copy");
    EXPECT_EQ(clipboard_.Brief, "Copied 4 pieces of all tracks: the list as text, and a picture of it");
}

TEST_F(ClipboardCommands, PasteIsAStepOfThatNameAndTellsWhatItLaid) {
    clipboard_.Text = "C160";

    Run("paste");

    EXPECT_EQ(clipboard_.Brief, "Pasted 1 piece at the end of track 1");
    EXPECT_EQ(session_.History().Caption(session_.History().Present()), "Paste");
}

TEST_F(ClipboardCommands, PasteOntoAnEmptyTrackBeginsAtItsStartWhereverTheUserMovedThat) {
    Track& track = session_.Project.Design.Circuit.Tracks[2];
    track.TrackStartX = 400;
    track.TrackStartY = 500;
    track.TrackStartHeading = 1;
    session_.Project.EditState.CurrentTrack = 2;
    clipboard_.Text = "C160 x2";

    Run("paste");

    EXPECT_EQ(track.Start(), (BuildCursor{400, 500, 1}));
    EXPECT_EQ(clipboard_.Brief, "Pasted 2 pieces onto track 3");
    const ViewRectangle shown = ShownRectangle(session_.Project.Design.View);
    EXPECT_TRUE(shown.ViewLeft < 400 && shown.ViewRight > 400) << "the view has followed";
    EXPECT_TRUE(shown.ViewBottom < 500 && shown.ViewTop > 500);
}

TEST_F(ClipboardCommands, CopyTakesSeveralSelectedPiecesAlone) {
    session_.Project.EditState.Select(2);
    session_.Project.EditState.RunFrom = 1;

    Run("copy");

    EXPECT_EQ(clipboard_.Copied.Text, "C160, C151L");
    EXPECT_EQ(clipboard_.Copied.Svg.find("data-index=\"0\""), std::string::npos);
    EXPECT_NE(clipboard_.Copied.Svg.find("data-index=\"2\""), std::string::npos);
    EXPECT_EQ(clipboard_.Brief, "Copied pieces 1 to 2 of track 1: the list as text, and a picture of them");
}

TEST_F(ClipboardCommands, PasteOntoAnEmptyTrackLiesBesideAllOthersAndIsTurnedAsItWas) {
    session_.Project.Design.Circuit.Tracks[0] = Chain("C151L C151L C151L C151L C151L C151L C151L C151L");
    session_.Project.Design.Circuit.Tracks[0].TrackStartHeading = 1.5707964F;
    Run("copy");
    clipboard_.Text = clipboard_.Copied.Text;
    session_.Project.EditState.CurrentTrack = 2;

    Run("paste");

    const Track& pasted = session_.Project.Design.Circuit.Tracks[2];
    EXPECT_EQ(pasted.ElementCodes.size(), 8U);
    EXPECT_EQ(pasted.TrackStartHeading, 1.5707964F);
    std::vector<Ground> grounds[TrackCount];
    for (std::size_t track = 0; track < TrackCount; ++track) {
        WalkTrack(Pieces(), session_.Project.Design.Circuit.Tracks[track],
                  [&](int, const PiecePlacement* placement, const BuildCursor&) {
                      grounds[track].push_back(GroundOf(*placement));
                  });
    }
    for (const Ground& ground : grounds[2]) {
        for (const std::size_t other : {0U, 1U}) {
            for (const Ground& laid : grounds[other])
                EXPECT_FALSE(Overlaps(ground, laid));
        }
    }
    Run("undo");
    EXPECT_EQ(session_.Project.Design.Circuit.Tracks[2].TrackStartX, -15.5F) << "with its start";
}

TEST_F(ClipboardCommands, TheViewFollowsWhatIsPasted) {
    ViewSettings& view = session_.Project.Design.View;
    view = ViewAround(1000, 0, 320, 160);
    clipboard_.Text = "C160";
    Run("paste"); // near the origin
    EXPECT_LT(view.MidX, 200) << "it has moved to the piece";
    EXPECT_EQ(view.Width, 320);

    clipboard_.Text = "C160 x20";
    Run("paste");
    EXPECT_GT(view.Width, 600) << "what is larger than the view is shown whole";

    Run("undo");
    EXPECT_EQ(view.Width, 320);
}

TEST_F(ClipboardCommands, WhatIsPastedIsSelected) {
    clipboard_.Text = "C160 x2, C151L";
    Run("paste");
    EXPECT_EQ(session_.Project.EditState.SelectedRun(5), (ElementRun{3, 3}));

    clipboard_.Text = "C160";
    Run("paste");
    EXPECT_EQ(session_.Project.EditState.SelectedRun(6), (ElementRun{6, 1}));
}

TEST_F(ClipboardCommands, PasteTellsWhatLiesOutsideTheRoom) {
    session_.Project.Design.Room.Points = {
        {-50, -50, 0}, {50, -50, 1}, {50, 150, 1}, {-50, 150, 1}, {-50, -50, 1}}; // straight up there is room for four
    session_.Project.Design.Circuit.Tracks[0] = Chain("C160 C160");
    clipboard_.Text = "C160 x3";

    Run("paste");
    EXPECT_EQ(clipboard_.Brief, "Pasted 3 pieces at the end of track 1; 1 of them lies outside the room");
    Run("paste");
    EXPECT_EQ(clipboard_.Brief, "Pasted 3 pieces at the end of track 1; they lie outside the room");
    clipboard_.Text = "C160";
    Run("paste");
    EXPECT_EQ(clipboard_.Brief, "Pasted 1 piece at the end of track 1; it lies outside the room");
}

TEST_F(ClipboardCommands, TheViewShowsATrackThatIsPastedTogetherWithTheOthers) {
    session_.Project.Design.Circuit.Tracks[0] = Chain("C151L C151L C151L C151L C151L C151L C151L C151L");
    Run("copy");
    clipboard_.Text = clipboard_.Copied.Text;
    session_.Project.EditState.CurrentTrack = 2;
    session_.Project.Design.View = ViewAround(0, 0, 120, 160);

    Run("paste");

    const ViewRectangle shown = ShownRectangle(session_.Project.Design.View);
    for (const Track& track : session_.Project.Design.Circuit.Tracks) {
        WalkTrack(Pieces(), track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
            const GroundBox box = GroundOf(*placement).Box;
            EXPECT_TRUE(shown.ViewLeft <= box.Left && box.Right <= shown.ViewRight);
            EXPECT_TRUE(shown.ViewBottom <= box.Bottom && box.Top <= shown.ViewTop);
        });
    }
}

TEST_F(ClipboardCommands, PasteOfAnotherTextIsToldAndChangesNothing) {
    clipboard_.Text = "Hello";
    EXPECT_EQ(FaultOf([&] { Run("paste"); }),
              "Nothing was pasted: no pieces are understood in \"Hello\".\nPaste takes a list of pieces such as \"C160 "
              "x3, C151L x4\", or one code a line.");
    clipboard_.Text = "";
    EXPECT_EQ(FaultOf([&] { Run("paste"); }),
              "Nothing was pasted: no pieces are on the clipboard.\nPaste takes a list of pieces such as \"C160 x3, "
              "C151L x4\", or one code a line.");
    clipboard_.Text = "C160 x 502";
    EXPECT_EQ(FaultOf([&] { Run("paste"); }), "Nothing was pasted: \"C160 x 502\": a track holds at most 501 pieces.");

    EXPECT_EQ(Track1(), "C160 C160 C151L");
}

TEST_F(ClipboardCommands, PasteOffersTheRestOfAListThatItDoesNotUnderstandWhole) {
    clipboard_.Text = "C160 x2\nC151R\nxyz\nC151 x2";
    user_.Answers = {Answer::Cancel, Answer::Ok};

    Run("paste");
    EXPECT_EQ(user_.Asked.at(0).Text,
              "Not understood: \"xyz\" (line 3) and \"C151 x2\" (line 4).\nC151 is C151L to the left and C151R to the "
              "right.\n\nPaste the 3 pieces that are?");
    EXPECT_EQ(Track1(), "C160 C160 C151L") << "Cancel lays nothing";

    Run("paste");
    EXPECT_EQ(Track1(), "C160 C160 C151L C160 C160 C151R");
    Run("undo");
    EXPECT_EQ(Track1(), "C160 C160 C151L") << "one step";
}

TEST_F(ClipboardCommands, PasteWantsASingleTrack) {
    session_.Project.EditState.CurrentTrack = AllTracks;
    clipboard_.Text = "C160";

    EXPECT_EQ(FaultOf([&] { Run("paste"); }), "Refused: \"paste\" is not offered now: Choose a single track first.");
}

TEST_F(ClipboardCommands, PasteOnAClosedTrackOffersAnEmptyOne) {
    const std::string circle = "C151L C151L C151L C151L C151L C151L C151L C151L";
    session_.Project.Design.Circuit.Tracks[0] = Chain(circle);
    clipboard_.Text = "C160 x2";
    user_.Answers = {Answer::Ok, Answer::Cancel};

    Run("paste");
    EXPECT_EQ(
        user_.Asked.at(0).Text,
        "Track 1 is closed: pieces at its end would lie over its first ones. Lay the 2 pieces on track 3 instead, "
        "which is empty?");
    EXPECT_EQ(CodesOf(session_.Project.Design.Circuit.Tracks[2]), "C160 C160");
    EXPECT_EQ(session_.Project.EditState.CurrentTrack, 2);
    EXPECT_EQ(Track1(), circle);

    Run("undo");
    EXPECT_EQ(CodesOf(session_.Project.Design.Circuit.Tracks[2]), "");
    session_.Project.EditState.CurrentTrack = 0;
    Run("paste");
    EXPECT_EQ(Track1(), circle) << "Cancel lays nothing";
}

TEST_F(ClipboardCommands, PasteOnAClosedTrackAsksNothingWhereNoOtherIsEmpty) {
    session_.Project.Design.Circuit.Tracks[0] = Chain("C151L C151L C151L C151L C151L C151L C151L C151L");
    session_.Project.Design.Circuit.Tracks[2] = Chain("C160");
    clipboard_.Text = "C160";

    Run("paste");

    EXPECT_EQ(session_.Project.Design.Circuit.Tracks[0].ElementCodes.size(), 9U);
}

TEST_F(ClipboardCommands, AnUnknownCodeIsToldBeforeATrackIsOffered) {
    session_.Project.Design.Circuit.Tracks[0] = Chain("C151L C151L C151L C151L C151L C151L C151L C151L");
    clipboard_.Text = "C160, C999 x2";
    user_.Answers = {Answer::Ok, Answer::Ok};

    Run("paste");

    EXPECT_EQ(user_.Asked.at(0).Text, "Not understood: \"C999 x2\".\n\nPaste the piece that is?");
    EXPECT_TRUE(user_.Asked.at(1).Text.starts_with("Track 1 is closed: ")) << user_.Asked[1].Text;
    EXPECT_EQ(CodesOf(session_.Project.Design.Circuit.Tracks[2]), "C160");
}

TEST_F(ClipboardCommands, OfAListThatNoTrackHoldsOnlyThatIsTold) {
    clipboard_.Text = "C160 x501, C159";

    EXPECT_EQ(FaultOf([&] { Run("paste"); }), "Nothing was pasted: a track holds at most 501 pieces.");
}

TEST_F(ClipboardCommands, WithoutPiecesThereIsNothingToCopyPrintExportOrPlan) {
    const auto whyNot = [this](const char* id) { return session_.Commands.Find(id)->WhyNot(session_); };
    EXPECT_EQ(whyNot("copy") + whyNot("print") + whyNot("export") + whyNot("build plan"), "");

    session_.Project.EditState.CurrentTrack = 2;
    EXPECT_EQ(whyNot("copy"), "The track is empty.");
    EXPECT_EQ(whyNot("print"), "");
    session_.Project.Design.Circuit = {};
    session_.Project.EditState.CurrentTrack = AllTracks;
    EXPECT_EQ(whyNot("copy"), "There are no pieces yet.");
    EXPECT_EQ(whyNot("print"), "There are no pieces yet.");
    EXPECT_EQ(whyNot("export"), "There are no pieces yet.");
    EXPECT_EQ(whyNot("build plan"), "There are no pieces yet.");
    session_.Project.Design.Room.Points = {{0, 0, 0}, {200, 0, 1}};
    EXPECT_EQ(whyNot("print"), "") << "a room can be drawn";
    EXPECT_EQ(whyNot("build plan"), "There are no pieces yet.");
}

} // namespace
} // namespace pistaro

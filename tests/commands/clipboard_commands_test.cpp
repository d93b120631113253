// Copy and Paste as rows of the command table, with a clipboard of the test's own.
#include "commands/session.h"
#include "imaging/circuit_picture.h"
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

TEST_F(ClipboardCommands, PasteOfAnotherTextIsRefusedAndChangesNothing) {
    clipboard_.Text = "Hello";

    EXPECT_EQ(FaultOf([&] { Run("paste"); }), "Type mismatch: \"HELLO\" is no piece");
    EXPECT_EQ(Track1(), "C160 C160 C151L");
}

TEST_F(ClipboardCommands, PasteWantsASingleTrack) {
    session_.Project.EditState.CurrentTrack = AllTracks;
    clipboard_.Text = "C160";

    EXPECT_EQ(FaultOf([&] { Run("paste"); }), "Refused: \"paste\" is not offered now: Choose a single track first.");
}

} // namespace
} // namespace pistaro

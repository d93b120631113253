// The room frame of the draw-area dialog.
#include "editor/room_points.h"

#include "platform/fault.h"
#include "support/scripted_prompts.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const RoomPoint A{0, 0, 0};
const RoomPoint B{300, 0, 1};
const RoomPoint C{300, 200, 1};

class TheRoomPoints : public testing::Test {
protected:
    void Add(const std::string& x, const std::string& y, bool line) {
        room_.Entry = {x, y, line};
        AddPoint(room_, prompts_);
    }

    RoomPoints room_ = OpenRoomPoints({A, B, C});
    ScriptedPrompts prompts_;
};

TEST_F(TheRoomPoints, OpenWithTheFirstPointShown) {
    EXPECT_EQ(room_.Number, 1);
    EXPECT_EQ(room_.Entry.X, "0");
    EXPECT_EQ(room_.Entry.Y, "0");
    EXPECT_FALSE(room_.Entry.Line);
}

TEST_F(TheRoomPoints, OpenEmptyForARoomWithoutPoints) {
    const RoomPoints empty = OpenRoomPoints({});

    EXPECT_EQ(empty.Number, 1);
    EXPECT_EQ(empty.Entry.X, "");
    EXPECT_TRUE(empty.Entry.Line);
    EXPECT_EQ(LastPlace(empty), 1);
    EXPECT_FALSE(ShowsPoint(empty));
}

TEST_F(TheRoomPoints, AreScrolledToOnePlaceAfterTheLastPoint) {
    ScrollToPoint(room_, 3);
    EXPECT_EQ(room_.Entry.X, "300");
    EXPECT_EQ(room_.Entry.Y, "200");
    EXPECT_TRUE(room_.Entry.Line);

    EXPECT_EQ(LastPlace(room_), 4);
    ScrollToPoint(room_, 4);
    EXPECT_EQ(room_.Entry.X, "");
    EXPECT_EQ(room_.Entry.Y, "");
}

TEST_F(TheRoomPoints, TakeANewPointAtTheLastPlaceAndScrollOn) {
    ScrollToPoint(room_, 4);

    Add("-12", "7", false);

    EXPECT_THAT(room_.Points, ElementsAre(A, B, C, RoomPoint{-12, 7, 0}));
    EXPECT_EQ(room_.Number, 5);
    EXPECT_EQ(room_.Entry.X, "");
}

TEST_F(TheRoomPoints, TakeAChangedPointInItsPlaceAndScrollOn) {
    ScrollToPoint(room_, 2);

    Add("310", "5", true);

    EXPECT_THAT(room_.Points, ElementsAre(A, RoomPoint{310, 5, 1}, C));
    EXPECT_EQ(room_.Number, 3);
    EXPECT_EQ(room_.Entry.X, "300");
    EXPECT_EQ(room_.Entry.Y, "200");
    EXPECT_TRUE(room_.Entry.Line);
}

TEST_F(TheRoomPoints, AreLeftAsTheyAreByAddingWhatTheyShow) {
    for (int number = 1; number <= 3; ++number)
        AddPoint(room_, prompts_);

    EXPECT_THAT(room_.Points, ElementsAre(A, B, C));
    EXPECT_EQ(room_.Number, 4);
}

TEST_F(TheRoomPoints, HoldNothingTypedWhileTheFieldsShowAPoint) {
    EXPECT_FALSE(HasTypedPoint(room_));
    for (int number = 1; number <= 4; ++number) {
        ScrollToPoint(room_, number);
        EXPECT_FALSE(HasTypedPoint(room_)) << number;
    }
    EXPECT_FALSE(HasTypedPoint(OpenRoomPoints({})));
}

TEST_F(TheRoomPoints, HoldATypedPointUntilItIsAddedOrScrolledAwayFrom) {
    room_.Entry.Y = "7";
    EXPECT_TRUE(HasTypedPoint(room_));
    ScrollToPoint(room_, 4);
    EXPECT_FALSE(HasTypedPoint(room_));

    room_.Entry.X = "5";
    EXPECT_TRUE(HasTypedPoint(room_));
    room_.Entry.Y = "6";
    EXPECT_TRUE(HasTypedPoint(room_));
    AddPoint(room_, prompts_);

    EXPECT_FALSE(HasTypedPoint(room_));
}

TEST_F(TheRoomPoints, TakeAChangedLineOfAPointForTypedButNotThatOfAPlaceWithoutPoint) {
    room_.Entry.Line = true;
    EXPECT_TRUE(HasTypedPoint(room_));

    ScrollToPoint(room_, 4);
    room_.Entry.Line = false;

    EXPECT_FALSE(HasTypedPoint(room_));
}

TEST_F(TheRoomPoints, RoundCoordinatesToWholeCentimetresHalvesToEven) {
    ScrollToPoint(room_, 4);
    Add("2.5", "-3.5", true);
    EXPECT_EQ(room_.Points.back(), (RoomPoint{2, -4, 1}));
}

TEST_F(TheRoomPoints, WantBothCoordinates) {
    ScrollToPoint(room_, 4);
    Add("", "5", true);
    Add("5", "  ", true);

    EXPECT_THAT(prompts_.Told, ElementsAre(Message{Icon::Exclamation, "Please specify the coordinates first."},
                                           Message{Icon::Exclamation, "Please specify the coordinates first."}));
    EXPECT_THAT(room_.Points, ElementsAre(A, B, C));
}

TEST_F(TheRoomPoints, RefuseATwentyFirstPoint) {
    room_ = OpenRoomPoints({});
    for (int point = 1; point <= 20; ++point)
        Add(std::to_string(point), "0", true);
    EXPECT_THAT(prompts_.Told, IsEmpty());
    EXPECT_EQ(LastPlace(room_), 20);
    EXPECT_EQ(room_.Number, 20);

    Add("21", "0", true);

    EXPECT_THAT(prompts_.Told, ElementsAre(Message{Icon::Exclamation, "Room definition is restricted to 20 points."}));
    ASSERT_EQ(room_.Points.size(), 20U);
    EXPECT_EQ(room_.Points.back(), (RoomPoint{20, 0, 1}));
}

TEST_F(TheRoomPoints, KeepSixteenBitsAndNumbersOnly) {
    ScrollToPoint(room_, 4);
    EXPECT_THROW(Add("32768", "0", true), Fault);
    EXPECT_THROW(Add("0", "-32769", true), Fault);
    EXPECT_THROW(Add("wall", "0", true), Fault);
    EXPECT_THAT(room_.Points, ElementsAre(A, B, C));

    Add("32767", "-32768", true);
    EXPECT_EQ(room_.Points.back(), (RoomPoint{32767, -32768, 1}));
}

TEST_F(TheRoomPoints, CloseUpAfterADeletedPointAndShowTheOneThatTookItsNumber) {
    ScrollToPoint(room_, 1);

    DeletePoint(room_);

    EXPECT_THAT(room_.Points, ElementsAre(B, C));
    EXPECT_EQ(room_.Number, 1);
    EXPECT_EQ(room_.Entry.X, "300");
    EXPECT_TRUE(room_.Entry.Line);
}

TEST_F(TheRoomPoints, ShowEmptyFieldsWhenTheLastPointIsDeleted) {
    ScrollToPoint(room_, 3);

    DeletePoint(room_);

    EXPECT_THAT(room_.Points, ElementsAre(A, B));
    EXPECT_EQ(room_.Number, 3);
    EXPECT_EQ(room_.Entry.X, "");
}

TEST_F(TheRoomPoints, DeleteNothingAfterTheLastPoint) {
    ScrollToPoint(room_, 4);
    DeletePoint(room_);
    EXPECT_THAT(room_.Points, ElementsAre(A, B, C));
}

} // namespace
} // namespace pistaro

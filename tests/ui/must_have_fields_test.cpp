// What circuits of a box must have, as far as the box gives it.
#include "ui/box_fixture.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::HasSubstr;

class MustHavesOfABox : public MyBox {};

TEST_F(MustHavesOfABox, AreOfferedOnlyWhereTheBoxGivesThem) {
    OpenBox();
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4,C277=1"));

    EXPECT_TRUE(Find<QCheckBox>("chkLapCounter").isEnabled());
    EXPECT_EQ(At<QLabel>("lblLacking", 0).text(), "");
    EXPECT_FALSE(Find<QCheckBox>("chkChicane").isEnabled());
    EXPECT_EQ(Find<QCheckBox>("chkChicane").toolTip(), "The box holds no two ends of a chicane.");
    EXPECT_EQ(At<QLabel>("lblLacking", 3).text(), "not both ends in the box");
}

TEST_F(MustHavesOfABox, AreGreyWhereTheyAreOfTheSystemThatMakesNoCircuit) {
    OpenBox();
    QCheckBox& changeOvers = Find<QCheckBox>("chkChangeOvers");
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4,N10111=2"));

    EXPECT_FALSE(changeOvers.isEnabled());
    EXPECT_EQ(At<QLabel>("lblLacking", 2).text(), "in no circuit of the box");
    EXPECT_EQ(changeOvers.toolTip(), "The change-overs are Ninco. The box's Ninco curves turn by 0° in all, and a "
                                     "circuit turns by 360°; one of both systems takes two N10110.");

    Box().Show(BoxOf(Pieces(), "C151=8,C160=4,N10111=2,N10110=2"));
    changeOvers.click();
    EXPECT_TRUE(changeOvers.isChecked());
    EXPECT_EQ(At<QLabel>("lblLacking", 2).text(), "");
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4,N10111=2,N10110=1"));
    EXPECT_FALSE(changeOvers.isChecked());
    EXPECT_EQ(At<QLabel>("lblLacking", 2).text(), "in no circuit: left out");
}

TEST_F(MustHavesOfABox, AreInEveryCircuit) {
    OpenBox();
    Find<QCheckBox>("chkLapCounter").setChecked(true);

    Search("C151=8,C160=4,C277=1,C159=1");

    ASSERT_GT(Circuits().count(), 0);
    const int count = Circuits().count();
    for (int row = 0; row < count; ++row) {
        OpenCircuit(row);
        EXPECT_THAT(Codes(), HasSubstr("C277"));
    }
}

TEST_F(MustHavesOfABox, TellWhyThereIsNoCircuitWithALapCounterAlone) {
    OpenBox();
    Find<QCheckBox>("chkLapCounter").setChecked(true);

    Search("C151=8,C160=2,C277=1");

    EXPECT_EQ(Circuits().count(), 0);
    EXPECT_THAT(Circuits().accessibleDescription().toStdString(), HasSubstr("has no second one to lie opposite"));
}

TEST_F(MustHavesOfABox, AreTickedAtFirstWhereTheVariedTrackHasThem) {
    Open(ProjectOf("C277 C160 C151R C151R C151R C151R C159 C160 C151R C151R C151R C151R"));
    Choose("mnuVariations");

    EXPECT_TRUE(Find<QCheckBox>("chkLapCounter").isChecked());
    EXPECT_FALSE(Find<QCheckBox>("chkBankedCurve").isChecked());
    Find<QCheckBox>("chkLapCounter").click();
    EXPECT_FALSE(Find<QCheckBox>("chkLapCounter").isChecked());
}

TEST_F(MustHavesOfABox, OfTwoSystemsThatDoNotComeTogetherAreRefusedBeforeTheSearch) {
    OpenBox();
    Box().Show(BoxOf(Pieces(), "C151=8,C160=8,C277=1,C159=1,N10105=8,N10102=8,N10111=2"));
    Find<QCheckBox>("chkLapCounter").click();
    EXPECT_TRUE(Find<QPushButton>("cmdSearch").isEnabled());

    Find<QCheckBox>("chkChangeOvers").click();

    const char* const why = "The lap counter is Scalextric, the change-overs are Ninco. A circuit of both systems "
                            "takes two N10110.";
    EXPECT_FALSE(Find<QPushButton>("cmdSearch").isEnabled());
    EXPECT_EQ(Find<QPushButton>("cmdSearch").toolTip(), why);
    EXPECT_EQ(Circuits().accessibleDescription(), why);
    EXPECT_EQ(Text("lblFound"), "No circuit of these pieces has all that it must have.");
}

TEST_F(MustHavesOfABox, CountAgainWhenTheBoxHasThemAgain) {
    OpenBox();
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4,C277=1"));
    QCheckBox& counter = Find<QCheckBox>("chkLapCounter");
    counter.click();

    Box().Show(BoxOf(Pieces(), "C151=8,C160=4"));
    EXPECT_FALSE(counter.isChecked());
    EXPECT_FALSE(counter.isEnabled());
    EXPECT_EQ(At<QLabel>("lblLacking", 0).text(), "not in the box: left out");
    Box().Show(BoxOf(Pieces(), "C151=8,C160=4,C277=1"));

    EXPECT_TRUE(counter.isChecked());
    EXPECT_EQ(At<QLabel>("lblLacking", 0).text(), "");
}

} // namespace
} // namespace pistaro

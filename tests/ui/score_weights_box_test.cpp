// What a good circuit is: what shall come first in a word, and the weights of the parts.
#include "ui/box_fixture.h"

#include <QToolButton>

namespace pistaro {
namespace {

class GoodCircuits : public MyBox {};

TEST_F(GoodCircuits, FollowTheWeightsAtOnce) {
    OpenBox();
    Search("C151=8,C160=4");
    Circuits().setCurrentRow(0);
    EXPECT_EQ(Circuits().item(4)->text().toStdString().substr(0, 4), "83 %");
    QTest::mouseClick(&Find<QToolButton>("cmdFineTune"), Qt::LeftButton);

    At<QSlider>("sldWeight", 0).setValue(0); // the use of the box
    for (int part = 1; part < 10; ++part)
        At<QSlider>("sldWeight", part).setValue(part == 6 ? 100 : 0); // the distance to the walls alone

    EXPECT_EQ(Find<QLabel>("lblScore").text(), At<QLabel>("lblPart", 6).text());
}

TEST_F(GoodCircuits, TellTheirWeightsAndPutThemBack) {
    OpenBox();
    Search("C151=8,C160=4");
    const std::string score = Text("lblScore");
    EXPECT_EQ(At<QLabel>("lblWeight", 0).text(), "6");
    EXPECT_EQ(At<QLabel>("lblWeight", 6).text(), "0.5");
    EXPECT_FALSE(Find<QPushButton>("cmdUsualWeights").isEnabled());

    At<QSlider>("sldWeight", 0).setValue(25);
    EXPECT_EQ(At<QLabel>("lblWeight", 0).text(), "2.5");
    EXPECT_NE(Text("lblScore"), score);
    QTest::mouseClick(&Find<QToolButton>("cmdFineTune"), Qt::LeftButton);
    PressHere("cmdUsualWeights");

    EXPECT_EQ(At<QLabel>("lblWeight", 0).text(), "6");
    EXPECT_EQ(Text("lblScore"), score);
}

TEST_F(GoodCircuits, HaveTheirWeightsFoldedAway) {
    OpenBox();
    EXPECT_FALSE(At<QSlider>("sldWeight", 0).isVisible());

    QTest::mouseClick(&Find<QToolButton>("cmdFineTune"), Qt::LeftButton);

    EXPECT_TRUE(At<QSlider>("sldWeight", 0).isVisible());
}

TEST_F(GoodCircuits, ComeFirstByAWord) {
    OpenBox();
    EXPECT_TRUE(Find<QRadioButton>("optAllRound").isChecked());
    Search("C151=8,C160=4");
    EXPECT_EQ(At<QLabel>("lblFigure", 5).text(), "0.70\u00a0m the longest");

    Find<QRadioButton>("optFastStraights").click();

    EXPECT_TRUE(Find<QRadioButton>("optFastStraights").isChecked());
    EXPECT_FALSE(Find<QRadioButton>("optAllRound").isChecked());
    EXPECT_EQ(At<QLabel>("lblWeight", 8).text(), "10");
    At<QSlider>("sldWeight", 0).setValue(0);
    EXPECT_FALSE(Find<QRadioButton>("optFastStraights").isChecked()) << "it is none of the usual tastes any more";
}

} // namespace
} // namespace pistaro

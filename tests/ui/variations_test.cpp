// Variations of a design: from its pieces, around a part that is kept, and none that the design is already.
#include "editor/picking.h"
#include "ui/box_fixture.h"
#include "ui/work_picture.h"

namespace pistaro {
namespace {

class VariationsOfADesign : public MyBox {};

TEST_F(VariationsOfADesign, AreNotOfferedWithoutPieces) {
    Open(ProjectOf(""));

    EXPECT_FALSE(Entry("mnuVariations").isEnabled());
}

TEST_F(VariationsOfADesign, AreLaidFromItsPieces) {
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));

    Choose("mnuVariations");

    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C151=8,C160=4"));
    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Text("lblFound").ends_with("no others."); }, 60'000));
    EXPECT_GT(Circuits().count(), 1);
}

TEST_F(VariationsOfADesign, KeepTheSelectedPartWhereItLies) {
    pistaro::Project project = ProjectOf("C160 C159 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R C159");
    project.EditState.CurrentElement[0] = 3;
    project.EditState.RunFrom = 0;
    Open(project);
    Choose("mnuVariations");
    EXPECT_TRUE(Find<QCheckBox>("chkKeepPart").isChecked());
    Box().Show(BoxOf(Pieces(), "C151=12,C159=4,C160=5"));

    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Circuits().count() > 1; }, 60'000));
    PressHere("cmdStop");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Find<QPushButton>("cmdCancelSearch").isEnabled(); }, 60'000));

    const BuildCursor start = project.Design.Circuit.Tracks[0].Start();
    const int count = Circuits().count();
    for (int row = 0; row < count; ++row) {
        OpenCircuit(row, "mnuVariations");
        EXPECT_EQ(Codes().substr(0, 21), "C160 C159 C151R C151R");
        EXPECT_EQ(Project.Design.Circuit.Tracks[0].Start(), start);
    }
    EXPECT_EQ(Session->History().Caption(Session->History().Present()), "Variation");
}

TEST_F(VariationsOfADesign, OfferThePartThatIsSelectedWhileTheWindowIsOpen) {
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));
    Choose("mnuVariations");
    QCheckBox& keeps = Find<QCheckBox>("chkKeepPart");
    EXPECT_FALSE(keeps.isChecked());

    Session->Do([&] {
        Project.EditState.Select(7);
        Project.EditState.RunFrom = 4;
    });

    EXPECT_TRUE(keeps.isChecked());
    EXPECT_EQ(keeps.text(), "The selected pa&rt: 4 to 7");
    Session->Do([&] { Project.EditState.SelectItAlone(); });
    EXPECT_FALSE(keeps.isChecked());
}

TEST_F(VariationsOfADesign, LeaveTheOtherTracksWhereTheyLie) {
    const char* const circle = "C151R C151R C151R C151R C151R C151R C151R C151R";
    pistaro::Project project = ProjectOf(circle, "C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R");
    project.Design.Room = EmptyArea({300, 300}).Room;
    project.EditState.CurrentTrack = 1;
    Open(project);
    Choose("mnuVariations");
    EXPECT_EQ(Dialog().windowTitle(), "Variations of Track 2");
    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C151=8,C160=4"));

    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Find<QPushButton>("cmdCancelSearch").isEnabled(); }, 60'000));
    OpenCircuit(0, "mnuVariations");

    EXPECT_EQ(Codes(), circle);
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].Start(), project.Design.Circuit.Tracks[0].Start());
    EXPECT_NE(Project.Design.Circuit.Tracks[1], project.Design.Circuit.Tracks[1]);
    EXPECT_EQ(Project.EditState.CurrentTrack, 1);
}

TEST_F(VariationsOfADesign, TellThatTheOtherTracksTakeTheirRoom) {
    pistaro::Project project = ProjectOf("C160 C151R C151R C160", "C160 C151R");
    Open(project);
    Choose("mnuVariations");
    EXPECT_TRUE(Find<QLabel>("lblOthers").isVisible());

    Session->Do([&] { Project.Design.Circuit.Tracks[1].ElementCodes.clear(); });

    EXPECT_FALSE(Find<QLabel>("lblOthers").isVisible());
}

TEST_F(VariationsOfADesign, ShowFirstWhatIsLikeTheDesign) {
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));
    Choose("mnuVariations");

    EXPECT_TRUE(Find<QRadioButton>("optLikeMine").isChecked());
    EXPECT_EQ(At<QLabel>("lblWeight", 10).text(), "10");
}

/// How much of a picture is tinted in about that hue, degrees: 0 is red, as walls are, and 34 the orange of new pieces.
double TintedShare(QWidget& picture, int hue) {
    const QImage image = picture.grab().toImage();
    int tinted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            constexpr int near = 10, vivid = 60, round = 360;
            const int away = std::abs(colour.hue() - hue);
            tinted += colour.saturation() > vivid && std::min(away, round - away) <= near ? 1 : 0;
        }
    }
    return static_cast<double>(tinted) / (image.width() * image.height());
}

TEST_F(VariationsOfADesign, ShowTheDesignWithThePartThatTheyKeep) {
    pistaro::Project project = ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R");
    project.Preferences.Colours.Active = Rgb(255, 0, 0);
    Open(project);
    Choose("mnuVariations");
    QWidget& picture = Find<QWidget>("picYours");
    const double one = TintedShare(picture, 0);

    Session->Do([&] {
        Project.EditState.Select(7);
        Project.EditState.RunFrom = 4;
    });

    EXPECT_GT(TintedShare(picture, 0), one + 0.01);
}

TEST_F(VariationsOfADesign, TintWhatIsUnlikeTheDesign) {
    Open(ProjectOf("C159 C160 C160 C151L C160 C160 C151L C160 C151R C151R C151R C151R C151R C160 C160 C151L C160 C151R "
                   "C151R C159 C151L C151R C160 C160 C151R C151R C151R C151R"));
    Choose("mnuVariations");
    EXPECT_LT(TintedShare(Find<QWidget>("picYours"), 34), 0.001);

    PressHere("cmdSearch");

    const auto isTinted = [&] { return TintedShare(Find<QWidget>("picChosen"), 34) > 0.005; };
    ASSERT_TRUE(QTest::qWaitFor(isTinted, 60'000));
    PressHere("cmdCancelSearch");
    EXPECT_EQ(At<QLabel>("lblFigureName", 0).text(), "Unlike yours");
    EXPECT_TRUE(At<QLabel>("lblFigure", 0).text().endsWith(", tinted"));
}

TEST_F(VariationsOfADesign, TintNothingWhereHardlyAnythingIsLikeTheDesign) {
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));
    Choose("mnuVariations");

    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Text("lblFound").ends_with("no others."); }, 60'000));

    EXPECT_LT(TintedShare(Find<QWidget>("picChosen"), 34), 0.001);
    EXPECT_EQ(At<QLabel>("lblFigure", 0).text(), "12 pieces");
}

TEST_F(VariationsOfADesign, KeepThePartThatIsClickedInThePictureOfTheDesign) {
    pistaro::Project project = ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R");
    project.Design.Circuit.Tracks[1] = project.Design.Circuit.Tracks[0]; // lies across all of it
    Open(project);
    Choose("mnuVariations");
    QWidget& picture = Find<QWidget>("picYours");
    Design shown;
    shown.Circuit.Tracks[0] = project.Design.Circuit.Tracks[0];
    const PickMap pieces(Pieces(), shown.Circuit);
    const auto click = [&](int element, Qt::KeyboardModifiers keys) {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const WorldPoint ground = GroundAt(QPointF(x, y), Pieces(), shown, picture.size());
                if (pieces.OnlyPieceAt(ground) == PieceAddress{0, element})
                    return QTest::mouseClick(&picture, Qt::LeftButton, keys, QPoint(x, y));
            }
        }
        FAIL() << "the piece is not in the picture";
    };

    click(4, Qt::NoModifier);
    click(7, Qt::ShiftModifier);

    EXPECT_TRUE(Find<QCheckBox>("chkKeepPart").isChecked());
    EXPECT_EQ(Find<QCheckBox>("chkKeepPart").text(), "The selected pa&rt: 4 to 7");
}

TEST_F(VariationsOfADesign, AreLookedForAnewWhereTheDesignIsAnother) {
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));
    Choose("mnuVariations");
    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Text("lblFound").ends_with("no others."); }, 60'000));
    const int found = Circuits().count();
    OpenCircuit(1, "mnuVariations");
    Choose("mnuVariations");
    EXPECT_EQ(Circuits().count(), found) << "one of those that were found";
    PressHere("cmdCloseBox");

    Session->Do([&] { Project.Design.Circuit.Tracks[0].ElementCodes = {"C160", "C159"}; });
    Choose("mnuVariations");

    EXPECT_EQ(Circuits().count(), 0);
    EXPECT_EQ(Box().Box(), BoxOf(Pieces(), "C159=1,C160=1"));
}

/// These twelve pieces make five circuits, of which the design is one.
TEST_F(VariationsOfADesign, LeaveOutTheDesignItself) {
    Open(ProjectOf("C151R C151R C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R"));
    Choose("mnuVariations");

    PressHere("cmdSearch");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Text("lblFound").ends_with("no others."); }, 60'000));

    EXPECT_EQ(Circuits().count(), 4);
}

} // namespace
} // namespace pistaro

// What can be chosen in the export dialog, and that it is chosen again the next time.
#include "export_fixture.h"

#include "commands/bitmaps.h"

#include <QAbstractItemView>
#include <QFormLayout>

namespace pistaro {
namespace {

TEST_F(FrmExport, EnablesWhatTheFormatHasAUseFor) {
    Choose("cboFormat", Png);
    EXPECT_TRUE(IsEnabled("spnWidth")) << "at first a picture for a screen";
    Choose("cboSize", PngPaper);
    EXPECT_TRUE(IsEnabled("spnDots"));
    EXPECT_TRUE(IsEnabled("cboPaper"));
    EXPECT_FALSE(IsEnabled("spnScale")) << "as large as the paper takes it";
    EXPECT_FALSE(IsShown("spnScale"));
    EXPECT_FALSE(IsShown("lblNoSize"));
    Choose("cboSize", PngWidth);
    EXPECT_TRUE(IsEnabled("spnWidth"));
    for (const char* const field : {"cboPaper", "spnScale", "spnDots", "chkWalls"})
        EXPECT_FALSE(IsShown(field)) << field;
    EXPECT_FALSE(IsEnabled("spnDots"));
    EXPECT_FALSE(IsEnabled("cboPaper"));

    Choose("cboFormat", Pdf);
    EXPECT_FALSE(IsEnabled("spnDots"));
    Choose("cboSize", 3);
    EXPECT_EQ(Find<QComboBox>("cboSize").currentText(), "To scale, in tiles of the paper");
    EXPECT_TRUE(IsEnabled("spnScale"));
    EXPECT_TRUE(IsEnabled("cboPaper"));

    Choose("cboFormat", Dxf);
    EXPECT_FALSE(IsEnabled("cboSize"));
    for (const char* const field : {"cboSize", "cboPaper", "spnScale", "spnDots", "spnWidth", "chkWalls"})
        EXPECT_FALSE(IsShown(field)) << field;
    EXPECT_TRUE(IsShown("lblNoSize"));
    EXPECT_EQ(Label("lblNoSize"), "A construction is always at full size, in centimetres.");
    EXPECT_TRUE(IsEnabled("chkNumbers"));
    EXPECT_FALSE(IsEnabled("chkSurface")) << "it knows no areas";

    Choose("cboFormat", Csv);
    EXPECT_FALSE(IsEnabled("chkNumbers"));
    EXPECT_TRUE(IsEnabled("cboTrack"));
    EXPECT_EQ(Label("lblNoSize"), "This file holds text and no drawing, so it has no size.");
    ExpectNothingClipped();
}

/// The toolkit's form, asked for its height at a width while some of its rows are hidden, writes beyond its own memory.
TEST_F(FrmExport, HasNoWordsThatWrapAmongRowsThatAreHidden) {
    for (const QFormLayout* const form : dialog_->findChildren<QFormLayout*>())
        EXPECT_FALSE(form->hasHeightForWidth());
}

TEST_F(FrmExport, BeginsWithWhatTheWindowShowsAndThenAsItEnded) {
    EXPECT_TRUE(Find<QCheckBox>("chkRoom").isChecked());
    EXPECT_FALSE(Find<QCheckBox>("chkSurface").isChecked());
    session_->Looks.Surface = true;
    session_->Project.EditState.ShowNumbers = true;
    Open();
    EXPECT_TRUE(Find<QCheckBox>("chkSurface").isChecked());
    EXPECT_TRUE(Find<QCheckBox>("chkNumbers").isChecked());

    for (const char* const choice : {"chkSurface", "chkNumbers", "chkRoom"})
        Press(choice);
    Choose("cboFormat", Png);
    Choose("cboSize", PngWidth);
    Find<QSpinBox>("spnWidth").setValue(432);
    Exported("x.png");
    Open();

    for (const char* const choice : {"chkSurface", "chkNumbers", "chkRoom"})
        EXPECT_FALSE(Find<QCheckBox>(choice).isChecked()) << choice;
    EXPECT_EQ(Find<QComboBox>("cboSize").currentText(), "At a width in pixels");
    EXPECT_EQ(Find<QSpinBox>("spnWidth").value(), 432);
}

TEST_F(FrmExport, WritesWhatTheKeysReachedInTheListThatStillStandsOpen) {
    Choose("cboFormat", Png);
    auto& formats = Find<QComboBox>("cboFormat");
    QTest::keyClick(&formats, Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(formats.view()->isVisible());

    QTest::keyClick(formats.view(), Qt::Key_Down);
    EXPECT_EQ(formats.currentText(), "Drawing (SVG)");
    prompts_.Files.push_back(folder_ / "x.svg");
    QTest::keyClick(formats.view(), Qt::Key_E, Qt::AltModifier);
    QApplication::processEvents();

    EXPECT_TRUE(BytesOf(folder_ / "x.svg").starts_with("<?xml"));
}

TEST_F(FrmExport, TakesBackWhatTheKeysReachedWhenEscapeClosesTheList) {
    Choose("cboFormat", Pdf);
    auto& formats = Find<QComboBox>("cboFormat");
    QTest::keyClick(&formats, Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(formats.view(), Qt::Key_Down);
    QTest::keyClick(formats.view(), Qt::Key_Down);
    EXPECT_EQ(formats.currentText(), "Table of pieces (CSV)");

    QTest::keyClick(formats.view(), Qt::Key_Escape);

    EXPECT_EQ(formats.currentText(), "Paper (PDF)");
    EXPECT_TRUE(IsOpen());
}

TEST_F(FrmExport, ChoosesASizeAgainBehindAFormatWithoutSizes) {
    Choose("cboFormat", Dxf);
    Choose("cboFormat", Pdf);

    EXPECT_EQ(Find<QComboBox>("cboSize").currentIndex(), 0);
}

TEST_F(FrmExport, TellsWhatEachFormatIsFor) {
    Choose("cboFormat", Png);
    EXPECT_EQ(Label("lblPurpose"), "For forums, mail and messengers");
    Choose("cboFormat", Csv);
    EXPECT_EQ(Label("lblPurpose"), "For a spreadsheet: each piece and its place");
    for (const Formats format : {Png, Svg, Pdf, Dxf, Csv, ShoppingList, Json}) {
        Choose("cboFormat", format);
        ExpectNothingClipped();
    }
}

TEST_F(FrmExport, KeepsTrackAndWallTiles) {
    Find<QCheckBox>("chkWalls").setChecked(true);
    Choose("cboTrack", 2);
    Exported("x.png");

    Open();
    EXPECT_TRUE(Find<QCheckBox>("chkWalls").isChecked());
    EXPECT_EQ(Find<QComboBox>("cboTrack").currentText(), "Track 2");

    project_.Design.Circuit.Tracks[1].ElementCodes.clear();
    Open();
    EXPECT_EQ(Find<QComboBox>("cboTrack").currentText(), "All tracks") << "of that one nothing could be exported";
}

TEST_F(FrmExport, KeepsItsWidthWhateverIsChosen) {
    Choose("cboFormat", Png);
    const QSize size = dialog_->size();

    for (const Formats format : {Svg, Pdf, Dxf, Csv, ShoppingList, Json, Png}) {
        Choose("cboFormat", format);
        QApplication::processEvents();
        EXPECT_EQ(dialog_->size(), size) << format;
    }
}

TEST_F(FrmExport, BeginsAsItWasClosedThoughNothingWasWritten) {
    Choose("cboFormat", Svg);
    Choose("cboSize", 1);
    Find<QDoubleSpinBox>("spnScale").setValue(12.5);
    Press("cmdClose");

    Open();
    EXPECT_EQ(Find<QComboBox>("cboFormat").currentText(), "Drawing (SVG)");
    EXPECT_EQ(Find<QComboBox>("cboSize").currentText(), "To scale, on a sheet of its own size");
    EXPECT_EQ(Find<QDoubleSpinBox>("spnScale").value(), 12.5);
}

TEST_F(FrmExport, RemembersTheResolution) {
    Choose("cboFormat", Png);
    Choose("cboSize", PngPaper);
    Find<QSpinBox>("spnDots").setValue(150);
    Exported("x.png");

    Open();
    EXPECT_EQ(Find<QSpinBox>("spnDots").value(), 150);
}

TEST_F(FrmExport, OffersTheBackgroundWhereOneLiesUnderTheCircuit) {
    EXPECT_FALSE(IsEnabled("chkBackground"));
    project_.Background = std::make_shared<const ScaledBackground>(ScaledBackground{
        .Picture = std::make_shared<const std::string>(Bitmap(8, 8, Rgb(0, 255, 0))), .CmPerPixel = 20});
    Open();
    Choose("cboFormat", Dxf);
    EXPECT_FALSE(IsEnabled("chkBackground"));
    EXPECT_FALSE(IsEnabled("chkBlackAndWhite")) << "colours do not count there";
    Choose("cboFormat", Svg);
    ASSERT_TRUE(IsEnabled("chkBackground"));

    const QImage bare = Find<QWidget>("picSheet").grab().toImage();
    Press("chkBackground");
    EXPECT_NE(Find<QWidget>("picSheet").grab().toImage(), bare);
    EXPECT_NE(Exported("x.svg").find("<image width=\"8\""), std::string::npos);
}

} // namespace
} // namespace pistaro

// The export dialog, by its own controls.
#include "ui/frmExport.h"

#include "commands/bitmaps.h"
#include "dialog_fixture.h"
#include "support/chain.h"

#include <QAbstractItemView>

namespace pistaro {
namespace {

class FrmExport : public DialogTest<frmExport> {
protected:
    FrmExport() {
        project_.Design = ProjectOf("C160 C151L", "C157").Design;
        Open();
    }

    void Choose(const char* list, int index) const { Find<QComboBox>(list).setCurrentIndex(index); }
    bool IsEnabled(const char* name) const { return Find<QWidget>(name).isEnabled(); }

    /// Presses Export, with this file as the one that the user chooses.
    std::string Exported(const char* name) {
        prompts_.Files.push_back(folder_ / name);
        Press("cmdExport");
        return BytesOf(folder_ / name);
    }
};

enum Formats { Png, Svg, Pdf, Dxf, Csv, Json };

TEST_F(FrmExport, EnablesWhatTheFormatHasAUseFor) {
    Choose("cboFormat", Png);
    EXPECT_TRUE(IsEnabled("spnDots"));
    EXPECT_TRUE(IsEnabled("cboPaper"));
    EXPECT_FALSE(IsEnabled("spnScale")) << "as large as the paper takes it";
    Choose("cboSize", 3);
    EXPECT_TRUE(IsEnabled("spnWidth"));
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
    EXPECT_TRUE(IsEnabled("chkNumbers"));
    EXPECT_FALSE(IsEnabled("chkSurface")) << "it knows no areas";

    Choose("cboFormat", Csv);
    EXPECT_FALSE(IsEnabled("chkNumbers"));
    EXPECT_TRUE(IsEnabled("cboTrack"));
    ExpectNothingClipped();
}

TEST_F(FrmExport, WritesTheChosenTrackInTheChosenFormatAndCloses) {
    Choose("cboFormat", Csv);
    Choose("cboTrack", 2);

    const std::string csv = Exported("x.csv");

    EXPECT_NE(csv.find("\r\n2,0,C157,"), std::string::npos);
    EXPECT_EQ(csv.find("C160"), std::string::npos);
    EXPECT_FALSE(IsOpen());
    ASSERT_EQ(prompts_.Dialogs.size(), 1U);
    EXPECT_EQ(prompts_.Dialogs[0].Filter, "Table of pieces (CSV)|*.csv");
    EXPECT_EQ(prompts_.Dialogs[0].DefaultName, "circuit.csv");
}

TEST_F(FrmExport, WritesAPictureOfTheWidthThatIsAskedFor) {
    Choose("cboFormat", Png);
    Choose("cboSize", 3);
    Find<QSpinBox>("spnWidth").setValue(432);

    const std::string png = Exported("x.png");

    const QImage image = QImage::fromData(QByteArray::fromStdString(png));
    EXPECT_EQ(image.width(), 432);
    EXPECT_GT(image.height(), 432);
}

TEST_F(FrmExport, WritesASvgToScale) {
    Choose("cboFormat", Svg);
    Choose("cboSize", 1);
    Find<QDoubleSpinBox>("spnScale").setValue(5);
    Choose("cboTrack", 2);

    EXPECT_NE(Exported("x.svg").find("width=\"5.1cm\" height=\"3.53125cm\""), std::string::npos)
        << "15.5 x 7.65625 cm at 1:5 with margins of 1 cm";
}

TEST_F(FrmExport, AsksBeforeAFileIsReplaced) {
    WriteBytes(folder_ / "x.json", "old");
    Choose("cboFormat", Json);
    prompts_.Answers = {Answer::No, Answer::Yes};

    EXPECT_EQ(Exported("x.json"), "old");
    EXPECT_TRUE(IsOpen());
    EXPECT_NE(Exported("x.json"), "old");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(prompts_.Asked[0].Text, "x.json is there already. Replace it?");
}

TEST_F(FrmExport, StaysOpenWhenNoFileIsChosenOrItCannotBeWritten) {
    Choose("cboFormat", Json);
    prompts_.Files = {std::nullopt, folder_ / "no" / "x.json"};

    Press("cmdExport");
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(prompts_.Told.empty());

    Press("cmdExport");
    EXPECT_TRUE(IsOpen());
    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_TRUE(prompts_.Told[0].Text.starts_with("Path not found: ")) << prompts_.Told[0].Text;
}

TEST_F(FrmExport, TellsHowLargeTheFileWillBe) {
    Choose("cboTrack", 2); // 15.5 x 7.65625 cm
    Choose("cboFormat", Svg);
    Choose("cboSize", 1);
    Find<QDoubleSpinBox>("spnScale").setValue(5);
    EXPECT_EQ(Label("lblPlanned"), "5.1 × 3.5 cm at 1:5");

    Choose("cboFormat", Png);
    EXPECT_EQ(Label("lblPlanned"), "2480 × 3508 pixels, 21 × 29.7 cm at 1:1");
    Choose("cboSize", 3);
    EXPECT_TRUE(Label("lblPlanned").starts_with("1600 × ")) << Label("lblPlanned");

    Choose("cboFormat", Pdf);
    EXPECT_EQ(Label("lblPlanned"), "1 sheet at 1:1, 21 × 29.7 cm");
    Choose("cboSize", 3);
    Find<QDoubleSpinBox>("spnScale").setValue(0.5);
    EXPECT_EQ(Label("lblPlanned"), "3 sheets at 1:0.5: an overview and 2 tiles, 21 × 29.7 cm each");
    Find<QDoubleSpinBox>("spnScale").setValue(0.1);
    Choose("cboTrack", 0);
    ExpectNothingClipped();

    Choose("cboFormat", Dxf);
    Choose("cboTrack", 2);
    EXPECT_EQ(Label("lblPlanned"), "15.5 × 7.7 cm at full size");
    Choose("cboFormat", Csv);
    Choose("cboTrack", 0);
    EXPECT_EQ(Label("lblPlanned"), "A table of 3 pieces; no drawing.");
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
    Choose("cboSize", 3);
    Find<QSpinBox>("spnWidth").setValue(432);
    Exported("x.png");
    Open();

    for (const char* const choice : {"chkSurface", "chkNumbers", "chkRoom"})
        EXPECT_FALSE(Find<QCheckBox>(choice).isChecked()) << choice;
    EXPECT_EQ(Find<QComboBox>("cboSize").currentText(), "At a width in pixels");
    EXPECT_EQ(Find<QSpinBox>("spnWidth").value(), 432);
}

TEST_F(FrmExport, WritesTheFormatWhoseEndingIsTyped) {
    Choose("cboFormat", Csv);

    const std::string dxf = Exported("x.dxf");

    EXPECT_NE(dxf.find("$ACADVER"), std::string::npos) << dxf.substr(0, 40);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 2) << "it, and the settings";
    EXPECT_EQ(prompts_.Dialogs[0].OtherEndings, (std::vector<std::string>{".png", ".svg", ".pdf", ".dxf", ".json"}));
    EXPECT_EQ(prompts_.Told.at(0).Text,
              (folder_ / "x.dxf").string() +
                  " is written.\n\nA CAD program such as LibreCAD opens it; its unit is the centimetre.");
    Open();
    EXPECT_EQ(Find<QComboBox>("cboFormat").currentText(), "Construction (DXF)");
}

TEST_F(FrmExport, KeepsTheScaleWhenATypedEndingChangesTheFormat) {
    Choose("cboFormat", Png);
    Choose("cboSize", 1);
    Find<QDoubleSpinBox>("spnScale").setValue(5);
    Choose("cboTrack", 2);

    EXPECT_NE(Exported("X.SVG").find("width=\"5.1cm\" height=\"3.53125cm\""), std::string::npos);
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
    EXPECT_FALSE(IsOpen());
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
    for (const Formats format : {Png, Svg, Pdf, Dxf, Csv, Json}) {
        Choose("cboFormat", format);
        ExpectNothingClipped();
    }
}

TEST_F(FrmExport, PaintsNothingAsOwnedOrToBuyUnlessThatIsTicked) {
    Choose("cboFormat", Svg);
    EXPECT_EQ(Exported("plain.svg").find("#ff0000"), std::string::npos);

    Open();
    Press("chkMissing");
    EXPECT_NE(Exported("stock.svg").find("#ff0000"), std::string::npos);
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

TEST_F(FrmExport, ShowsTheFirstLinesOfATable) {
    Choose("cboFormat", Csv);
    ASSERT_TRUE(Find<QWidget>("txtLines").isVisible());
    EXPECT_FALSE(Find<QWidget>("picSheet").isVisible());
    const QStringList lines = Find<QPlainTextEdit>("txtLines").toPlainText().split('\n');
    ASSERT_GE(lines.size(), 4);
    EXPECT_TRUE(lines[1].startsWith("1,0,C160,")) << lines[1].toStdString();
    EXPECT_TRUE(lines[3].startsWith("2,0,C157,")) << lines[3].toStdString();

    Choose("cboFormat", Json);
    EXPECT_TRUE(Find<QPlainTextEdit>("txtLines").toPlainText().startsWith("{\"tracks\":[{\"track\":1,"));
    ExpectNothingClipped();
    Choose("cboFormat", Svg);
    EXPECT_FALSE(Find<QWidget>("txtLines").isVisible());
    EXPECT_TRUE(Find<QWidget>("picSheet").isVisible());
}

TEST_F(FrmExport, KeepsItsWidthWhateverIsChosen) {
    Choose("cboFormat", Png);
    const QSize size = dialog_->size();

    for (const Formats format : {Svg, Pdf, Dxf, Csv, Json, Png}) {
        Choose("cboFormat", format);
        QApplication::processEvents();
        EXPECT_EQ(dialog_->size(), size) << format;
    }
}

TEST_F(FrmExport, RemembersTheResolution) {
    Choose("cboFormat", Png);
    Find<QSpinBox>("spnDots").setValue(150);
    Exported("x.png");

    Open();
    EXPECT_EQ(Find<QSpinBox>("spnDots").value(), 150);
}

TEST_F(FrmExport, ShowsATablesNumbersRoundedAndWritesThemWhole) {
    project_.Design.Circuit.Tracks[0] = Chain("C151L C151L C160");
    Open();
    Choose("cboFormat", Csv);

    const QStringList fields = Find<QPlainTextEdit>("txtLines").toPlainText().split('\n')[3].split(',');
    const std::string csv = Exported("x.csv");

    ASSERT_EQ(fields.size(), 18);
    EXPECT_EQ(fields[6], "1.571") << "two curves of 45 degrees";
    for (qsizetype field = 4; field < fields.size(); ++field)
        EXPECT_LE(fields[field].section('.', 1).size(), 3) << fields[field].toStdString();
    EXPECT_NE(csv.find("1.5707"), std::string::npos);
}

TEST_F(FrmExport, ShowsAConstructionWithAMarginAroundIt) {
    Choose("cboFormat", Dxf);
    const QImage preview = Find<QWidget>("picSheet").grab().toImage();
    const QRgb paper = qRgb(255, 255, 255);
    int first = -1; // row of paper, and of ink on it
    int ink = -1;
    for (int y = 0; y < preview.height() && ink < 0; ++y) {
        for (int x = 0; x < preview.width(); ++x) {
            const QRgb dot = preview.pixel(x, y);
            if (dot == paper && first < 0) first = y;
            if (first >= 0 && qGray(dot) < 60) ink = y;
        }
    }
    ASSERT_GE(ink, 0);
    EXPECT_GE(ink - first, 10) << "a twenty-fifth of some 340 pixels";
}

TEST_F(FrmExport, CutsALongTableAtALinesEnd) {
    project_.Design.Circuit.Tracks[0].ElementCodes.assign(100, "C160");
    Open();
    Choose("cboFormat", Csv);

    const QStringList lines = Find<QPlainTextEdit>("txtLines").toPlainText().split('\n');

    ASSERT_GE(lines.size(), 10);
    EXPECT_LT(lines.size(), 100) << "not all of it";
    EXPECT_EQ(lines.back(), "…");
    EXPECT_EQ(lines[lines.size() - 2].count(','), 17) << "of 18 columns";
}

TEST_F(FrmExport, CutsALongLineBetweenCharacters) {
    std::string manyOfTwoBytes;
    for (int i = 0; i < 5000; ++i)
        manyOfTwoBytes += "Ü";
    for (const std::string& code : {manyOfTwoBytes, "x" + manyOfTwoBytes}) {
        project_.Design.Circuit.Tracks[0].ElementCodes = {code};
        Open();
        Choose("cboFormat", Json);
        const QString text = Find<QPlainTextEdit>("txtLines").toPlainText();
        EXPECT_TRUE(text.endsWith("Ü…")) << text.right(4).toStdString();
        EXPECT_FALSE(text.contains(QChar::ReplacementCharacter));
    }
}

TEST_F(FrmExport, TellsSizesInTheUsersUnits) {
    project_.Preferences.Units.Inches = true;
    Open();
    Choose("cboTrack", 2); // 15.5 x 7.65625 cm
    Choose("cboFormat", Dxf);

    EXPECT_EQ(Label("lblPlanned"), "6.1 × 3 in at full size");
}

TEST_F(FrmExport, ExportsNothingThatCannotBeWritten) {
    Choose("cboFormat", Png);
    Choose("cboSize", 1);
    Find<QDoubleSpinBox>("spnScale").setValue(0.1);

    EXPECT_TRUE(Label("lblPlanned").starts_with("Picture too large: ")) << Label("lblPlanned");
    EXPECT_FALSE(IsEnabled("cmdExport"));

    Find<QDoubleSpinBox>("spnScale").setValue(10);
    EXPECT_TRUE(IsEnabled("cmdExport"));
}

TEST_F(FrmExport, TellsWhereTheFileIsAndBeginsTheNextTimeAsItEnded) {
    std::filesystem::create_directory(folder_ / "out");
    Choose("cboFormat", Pdf);
    Choose("cboPaper", 2);
    prompts_.Files.push_back(folder_ / "out" / "x.pdf");
    Press("cmdExport");
    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_EQ(prompts_.Told[0],
              (Message{Icon::Information,
                       (folder_ / "out" / "x.pdf").string() +
                           " is written.\n\nAny PDF reader or web browser opens and prints it, to scale at 100 %."}));

    Open();
    EXPECT_EQ(Find<QComboBox>("cboFormat").currentText(), "Paper (PDF)");
    EXPECT_EQ(Find<QComboBox>("cboPaper").currentText(), "A3");
    prompts_.Files.emplace_back(std::nullopt);
    Press("cmdExport");
    EXPECT_EQ(prompts_.Dialogs.back().Folder, (folder_ / "out").string());
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

// The print dialog, by its own controls; its printer is one that prints into a file.
#include "ui/frmPrint.h"

#include "commands/bitmaps.h"
#include "dialog_fixture.h"
#include "support/chain.h"

#include <QPrinter>
#include <QWheelEvent>

namespace pistaro {
namespace {

class FrmPrint : public DialogTest<frmPrint> {
protected:
    FrmPrint() {
        project_.Design = ProjectOf("C160 C160").Design; // 15.5 x 70 cm
        Open();
    }

    void Choose(const char* list, int index) const { Find<QComboBox>(list).setCurrentIndex(index); }

    void ChooseScale(double scale) const {
        Press("optSize", 1);
        Find<QDoubleSpinBox>("spnScale").setValue(scale);
    }

    /// Red, or darker than paper and desk.
    static bool IsInk(QRgb dot) { return qGray(dot) < 110 || qRed(dot) - qGreen(dot) > 40; }

    /// How much of the preview is ink.
    int Ink() const {
        const QImage preview = Find<QWidget>("picSheet").grab().toImage();
        int ink = 0;
        for (int y = 0; y < preview.height(); ++y) {
            for (int x = 0; x < preview.width(); ++x)
                ink += IsInk(preview.pixel(x, y)) ? 1 : 0;
        }
        return ink;
    }
};

TEST_F(FrmPrint, BeginsWithOneSheetThatShowsAll) {
    EXPECT_EQ(Label("lblSheets"), "1 sheet of A4, portrait, at 1:2.7") << "70 cm on 26.1";
    EXPECT_EQ(Find<QSpinBox>("spnSheet").maximum(), 1);
    EXPECT_FALSE(Find<QWidget>("spnScale").isEnabled());
    EXPECT_GT(Ink(), 100);
    ExpectNothingClipped();
}

TEST_F(FrmPrint, TellsHowManySheetsAScaleTakes) {
    ChooseScale(1);

    EXPECT_EQ(Label("lblSheets"),
              "4 sheets of A4 at 1:1: an overview and 3 tiles, covering 0.2\u00A0×\u00A00.8\u00A0m of paper")
        << "three tiles of 18 x 25.1 cm";
    EXPECT_EQ(Find<QSpinBox>("spnSheet").maximum(), 4);

    Choose("cboPaper", 0);
    EXPECT_EQ(Label("lblSheets"),
              "8 sheets of A5 at 1:1: an overview and 7 tiles, covering 0.2\u00A0×\u00A00.7\u00A0m of paper")
        << "A5 turned: 18 x 10.2 of each";
    Choose("cboPaper", 1);
    Choose("cboOrientation", 2);
    EXPECT_EQ(Label("lblSheets"),
              "6 sheets of A4 at 1:1: an overview and 5 tiles, covering 0.3\u00A0×\u00A00.8\u00A0m of paper")
        << "turned, 26.7 x 16.4";
    ExpectNothingClipped();
}

TEST_F(FrmPrint, LeavesTilesWithWallsAloneOutUnlessTheyAreTicked) {
    project_.Design.Room.Points = {{0, 0, 0}, {100, 0, 1}};
    Open();
    EXPECT_TRUE(Find<QCheckBox>("chkRoom").isChecked()) << "at first, too";
    EXPECT_FALSE(Find<QWidget>("chkWalls").isEnabled()) << "on one sheet all is shown";
    Choose("cboOrientation", 1);
    ChooseScale(1);
    ASSERT_TRUE(Find<QWidget>("chkWalls").isEnabled());
    EXPECT_EQ(Label("lblSheets"), "7 sheets of A4 at 1:1: an overview and 6 tiles, covering "
                                  "1.1\u00A0×\u00A00.8\u00A0m of paper; 4 with walls alone left out")
        << "six columns and three rows of 18 x 25.1 cm";
    ExpectNothingClipped();

    Press("chkWalls");
    EXPECT_EQ(Label("lblSheets"),
              "11 sheets of A4 at 1:1: an overview and 10 tiles, covering 1.1\u00A0×\u00A00.8\u00A0m of paper");
    Press("chkRoom");
    EXPECT_FALSE(Find<QWidget>("chkWalls").isEnabled());
}

TEST_F(FrmPrint, CountsOneTileThatIsLeftWithoutItsWallsAsOneSheet) {
    PlannedSheets sheets;
    sheets.Plan.Tiled = true;
    sheets.Plan.Sheets.resize(1);
    sheets.Plan.LeftOut = 4;

    EXPECT_EQ(SheetsText(sheets), "1 sheet at 1:1; 4 with walls alone left out");
    EXPECT_EQ(PrintedText(sheets, "A4"), "1 sheet of A4, portrait, at 1:1; 4 with walls alone left out");
}

TEST_F(FrmPrint, KeepsItsSizeAndThePlaceOfThePreviewWhateverIsChosen) {
    project_.Design.Room.Points = {{0, 0, 0}, {100, 0, 1}};
    Open();
    const QSize size = dialog_->size();
    const QRect preview = Find<QWidget>("picSheet").geometry();

    ChooseScale(1);
    Choose("cboOrientation", 1);
    QApplication::processEvents();

    EXPECT_TRUE(Label("lblSheets").ends_with("; 4 with walls alone left out")) << "on two lines";
    EXPECT_EQ(dialog_->size(), size);
    EXPECT_EQ(Find<QWidget>("picSheet").geometry(), preview);
}

TEST_F(FrmPrint, PreviewsEachSheet) {
    ChooseScale(1);
    const int overview = Ink();
    Find<QSpinBox>("spnSheet").setValue(2);

    EXPECT_NE(Ink(), overview);
}

TEST_F(FrmPrint, TurnsThePagesOfThePreviewAndTellsWhichItShows) {
    EXPECT_EQ(Label("lblShown"), "");
    EXPECT_FALSE(Find<QWidget>("cmdNext").isEnabled());
    ChooseScale(1);
    EXPECT_EQ(Label("lblShown"), "Overview");
    EXPECT_FALSE(Find<QWidget>("cmdPrevious").isEnabled());

    Press("cmdNext");
    EXPECT_EQ(Label("lblShown"), "Tile A1");
    auto& preview = Find<QWidget>("picSheet");
    const auto turn = [&](int notches) {
        QWheelEvent wheel({9, 9}, preview.mapToGlobal(QPointF(9, 9)), {}, {0, 120 * notches}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&preview, &wheel);
    };
    turn(-2);
    EXPECT_EQ(Find<QSpinBox>("spnSheet").value(), 4);
    EXPECT_EQ(Label("lblShown"), "Tile A3");
    EXPECT_FALSE(Find<QWidget>("cmdNext").isEnabled());
    turn(1);
    Press("cmdPrevious");
    EXPECT_EQ(Label("lblShown"), "Tile A1");
}

TEST_F(FrmPrint, TellsHowMuchFloorTheSheetsCoverInTheUnitsOfTheDesign) {
    ChooseScale(1);
    project_.Preferences.Units.Inches = true;
    Choose("cboPaper", 3);
    EXPECT_EQ(Label("lblSheets"),
              "3 sheets of A2 at 1:1: an overview and 2 tiles, covering 15\u00A0×\u00A043\u00A0in of paper")
        << "two tiles of 39 x 54.8 cm, 109.6 together";
    ExpectNothingClipped();
}

TEST_F(FrmPrint, AsksBeforeManySheetsArePrinted) {
    project_.Design = ProjectOf("C160 C160 C160 C160 C160 C160 C160 C160 C160 C160 C160 C160 C160 C160 C160").Design;
    Open();
    ChooseScale(1);
    prompts_.Answers = {Answer::Cancel};

    Press("cmdPrint");

    ASSERT_EQ(prompts_.Asked.size(), 1U);
    EXPECT_EQ(prompts_.Asked[0].Text, "22 sheets of A4 at 1:1: an overview and 21 tiles, covering "
                                      "0.2\u00A0×\u00A05.3\u00A0m of paper. Print them all?")
        << "525 cm on tiles of 25.1";
    EXPECT_TRUE(IsOpen());
}

TEST_F(FrmPrint, OffersItsOwnEndingForAnotherOneAndAsksAgainWhereThatIsNotWanted) {
    prompts_.Files = {folder_ / "x.png", folder_ / "y.png"};
    prompts_.Answers = {Answer::Cancel, Answer::Ok};

    Press("cmdPdf");

    EXPECT_EQ(prompts_.Asked.at(0).Text, "x.png cannot be written: files here end in .pdf. Write x.pdf instead?");
    ASSERT_EQ(prompts_.Dialogs.size(), 2U);
    EXPECT_EQ(prompts_.Dialogs[0].Title, "Save as PDF");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "x.pdf"));
    EXPECT_TRUE(std::filesystem::exists(folder_ / "y.pdf"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "y.png"));
}

TEST_F(FrmPrint, TakesAScaleThatIsTypedWithOrWithoutItsOne) {
    Press("optSize", 1);
    auto& scale = Find<QDoubleSpinBox>("spnScale");
    EXPECT_EQ(scale.text(), "1:1");
    for (const char* const typed : {"1:5", "5"}) {
        scale.setValue(1);
        scale.setFocus();
        scale.selectAll();
        QTest::keyClicks(&scale, typed);
        EXPECT_EQ(scale.value(), 5) << typed;
        EXPECT_EQ(scale.text(), "1:5") << typed;
    }
    scale.setValue(2.5);
    EXPECT_EQ(scale.text(), "1:2.5");
}

TEST_F(FrmPrint, PrintsAtARoundScaleWhereThatIsTicked) {
    ASSERT_EQ(Label("lblSheets"), "1 sheet of A4, portrait, at 1:2.7");

    Press("chkRound");
    EXPECT_EQ(Label("lblSheets"), "1 sheet of A4, portrait, at 1:3");
    Press("optSize", 1);
    EXPECT_FALSE(Find<QWidget>("chkRound").isEnabled()) << "tiles have a scale of their own";
}

TEST_F(FrmPrint, GivesThePreviewTheRoomThatItGains) {
    const QSize preview = Find<QWidget>("picSheet").size();
    const int choices = Find<QWidget>("cboPaper").width();

    dialog_->resize(dialog_->size() + QSize(200, 150));
    QApplication::processEvents();

    EXPECT_EQ(Find<QWidget>("picSheet").size(), preview + QSize(200, 150));
    EXPECT_EQ(Find<QWidget>("cboPaper").width(), choices);
}

TEST_F(FrmPrint, CanBeMadeSmallerUntilNothingWouldBeCut) {
    dialog_->resize(100, 100);
    QApplication::processEvents();

    EXPECT_LT(dialog_->width(), 900);
    EXPECT_GE(Find<QWidget>("picSheet").width(), 300);
    ExpectNothingClipped();
}

TEST_F(FrmPrint, PaintsPiecesInInkUnlessMissingOnesAreMarked) {
    const auto red = [this] {
        const QImage preview = Find<QWidget>("picSheet").grab().toImage();
        int count = 0;
        for (int y = 0; y < preview.height(); ++y) {
            for (int x = 0; x < preview.width(); ++x)
                count += qRed(preview.pixel(x, y)) - qGreen(preview.pixel(x, y)) > 40 ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(red(), 0);

    Press("chkBlackAndWhite");
    EXPECT_FALSE(Find<QCheckBox>("chkMissing").isEnabled());
    Press("chkBlackAndWhite");
    Press("chkMissing");
    EXPECT_GT(red(), 100);
}

TEST_F(FrmPrint, ShowsMoreWhenMoreIsChosen) {
    const int bare = Ink();
    Press("chkGrid");
    EXPECT_GT(Ink(), bare);
}

TEST_F(FrmPrint, WritesTheSheetsIntoAPdfWithTheDate) {
    ChooseScale(1);
    prompts_.Files.push_back(folder_ / "x.pdf");

    Press("cmdPdf");

    const std::string pdf = BytesOf(folder_ / "x.pdf");
    EXPECT_NE(pdf.find("/Count 4"), std::string::npos);
}

TEST_F(FrmPrint, TellsWhyThereIsNothingToPrint) {
    project_.Design.Circuit.Tracks[0].TrackStartX = 2e6F;
    Open();

    EXPECT_EQ(Label("lblSheets"), "Overflow: the circuit lies more than 10 km from its origin");
    EXPECT_FALSE(Find<QWidget>("cmdPrint").isEnabled());
    EXPECT_FALSE(Find<QWidget>("cmdPdf").isEnabled());
}

TEST_F(FrmPrint, PrintsAllSheetsOnTheWholePaper) {
    ChooseScale(1);
    Choose("cboOrientation", 2);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString((folder_ / "printed.pdf").string()));

    PrintSheets(*dialog_->Planned(), "2026-01-02", printer);

    const std::string pdf = BytesOf(folder_ / "printed.pdf");
    EXPECT_NE(pdf.find("/Count 6"), std::string::npos);
    EXPECT_NE(pdf.find("/MediaBox [0 0 842.000000 595.000000]"), std::string::npos);
}

TEST_F(FrmPrint, ShowsAllOfTheBackgroundOnASheetAndOnTilesWhatLiesAroundTheTrack) {
    project_.Background = std::make_shared<const ScaledBackground>(ScaledBackground{
        .Picture = std::make_shared<const std::string>(Bitmap(8, 8, Rgb(0, 255, 0))), .CmPerPixel = 20});
    Open();
    const auto green = [this] {
        const QImage preview = Find<QWidget>("picSheet").grab().toImage();
        int count = 0;
        for (int y = 0; y < preview.height(); ++y) {
            for (int x = 0; x < preview.width(); ++x)
                count += preview.pixel(x, y) == qRgb(0, 255, 0) ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(green(), 0);
    EXPECT_EQ(Label("lblSheets"), "1 sheet of A4, portrait, at 1:2.7");

    Press("chkBackground");
    EXPECT_EQ(Label("lblSheets"), "1 sheet of A4, portrait, at 1:8.5") << "160 cm on 19";
    EXPECT_GT(green(), 10000);
    ChooseScale(1);
    EXPECT_TRUE(Label("lblSheets").starts_with("4 sheets of A4 at 1:1: ")) << "as without it";
    Find<QSpinBox>("spnSheet").setValue(2);
    EXPECT_GT(green(), 10000);
    Press("chkBlackAndWhite");
    EXPECT_EQ(green(), 0);
}

TEST_F(FrmPrint, StaysWhenAPdfIsWrittenAndHasNothingToCancel) {
    prompts_.Files.push_back(folder_ / "x.pdf");

    Press("cmdPdf");

    EXPECT_TRUE(std::filesystem::exists(folder_ / "x.pdf"));
    EXPECT_TRUE(IsOpen());
    Press("cmdClose");
    EXPECT_FALSE(IsOpen());
}

TEST_F(FrmPrint, BeginsWithThePaperOfTheLastTimeAndTellsWhereThePdfIs) {
    Choose("cboPaper", 6);
    Press("chkNumbers");
    Press("chkRoom");
    Find<QCheckBox>("chkWalls").setChecked(true);
    prompts_.Files.push_back(folder_ / "x.pdf");
    Press("cmdPdf");
    EXPECT_EQ(prompts_.Told.at(0).Text,
              (folder_ / "x.pdf").string() +
                  " is written.\n\nAny PDF reader or web browser opens and prints it, to scale at "
                  "100 %.");

    Open();
    EXPECT_EQ(Find<QComboBox>("cboPaper").currentText(), "Letter");
    EXPECT_TRUE(Find<QCheckBox>("chkNumbers").isChecked());
    EXPECT_FALSE(Find<QCheckBox>("chkRoom").isChecked());
    EXPECT_TRUE(Find<QCheckBox>("chkWalls").isChecked());
}

TEST_F(FrmPrint, BeginsWithTheTilesAndTheScaleOfTheLastTime) {
    ChooseScale(2.5);
    Choose("cboOrientation", 2);
    prompts_.Files.push_back(folder_ / "x.pdf");
    Press("cmdPdf");

    Open();
    EXPECT_TRUE(Find<QAbstractButton>("optSize", 1).isChecked());
    EXPECT_EQ(Find<QDoubleSpinBox>("spnScale").value(), 2.5);
    EXPECT_TRUE(Find<QWidget>("spnScale").isEnabled());
    EXPECT_EQ(Find<QComboBox>("cboOrientation").currentText(), "Landscape");

    Press("optSize", 0);
    Press("chkRound");
    Press("cmdClose");
    Open();
    EXPECT_TRUE(Find<QAbstractButton>("optSize", 0).isChecked());
    EXPECT_TRUE(Find<QCheckBox>("chkRound").isChecked());
}

} // namespace
} // namespace pistaro

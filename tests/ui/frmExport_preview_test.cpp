// What the export dialog tells and shows of a file before it is written.
#include "export_fixture.h"

#include "ui/preview_lines.h"

namespace pistaro {
namespace {

TEST_F(FrmExport, TellsHowLargeTheFileWillBe) {
    Choose("cboTrack", 2); // 15.5 x 7.65625 cm
    Choose("cboFormat", Svg);
    Choose("cboSize", 1);
    Find<QDoubleSpinBox>("spnScale").setValue(5);
    EXPECT_EQ(Label("lblPlanned"), "5.1 × 3.5 cm at 1:5");

    Choose("cboFormat", Png);
    Choose("cboSize", PngPaper);
    EXPECT_EQ(Label("lblPlanned"), "2480 × 3508 pixels, 21 × 29.7 cm at 1:1");
    Choose("cboSize", PngWidth);
    EXPECT_EQ(Label("lblPlanned"), "1600 × 845 pixels") << "29.7 x 15.68 cm with margins of 1 cm";

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
    EXPECT_EQ(Label("lblPlanned"), "A table of 3 pieces, a line each: code, name, where it lies. Counts and prices are "
                                   "in another format: Shopping list (CSV).");
    Choose("cboFormat", Json);
    EXPECT_EQ(Label("lblPlanned"), "3 pieces; no drawing.");
}

TEST_F(FrmExport, TellsSizesInTheUsersUnits) {
    project_.Preferences.Units.Inches = true;
    Open();
    Choose("cboTrack", 2); // 15.5 x 7.65625 cm
    Choose("cboFormat", Dxf);

    EXPECT_EQ(Label("lblPlanned"), "6.1 × 3 in at full size");
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
    EXPECT_TRUE(
        Find<QPlainTextEdit>("txtLines").toPlainText().startsWith("{\n  \"tracks\":[\n    {\n      \"track\":1,\n"));
    ExpectNothingClipped();
    Choose("cboFormat", Svg);
    EXPECT_FALSE(Find<QWidget>("txtLines").isVisible());
    EXPECT_TRUE(Find<QWidget>("picSheet").isVisible());
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

TEST_F(FrmExport, TellsHowMuchIsToBeBought) {
    for (ProductStock& product : project_.Stock.Products)
        product = {};
    Choose("cboFormat", ShoppingList);
    EXPECT_EQ(Label("lblPlanned"), "3 pieces to buy, beyond those that you own. Settings ▸ Loose Track takes what you "
                                   "own, and prices.");
    EXPECT_TRUE(Find<QPlainTextEdit>("txtLines").toPlainText().startsWith("count,code,name,price,sum\n"));
    ExpectNothingClipped();

    for (const char* const code : {"C160", "C151", "C157"})
        project_.Stock.Of(Pieces().FindHeadRow(code)).OwnedCount = 1;
    Open();
    Choose("cboFormat", ShoppingList);
    EXPECT_EQ(Label("lblPlanned"), "Nothing is to be bought: you own all of these pieces.");
}

TEST(PreviewLines, IndentJsonButForSimpleListsAndLeaveStringsAlone) {
    EXPECT_EQ(PreviewLines(R"({"a":[{"b":[1,2],"c":"x,{\"]"}],"d":{}})", ExportFormat::Json).toStdString(),
              "{\n  \"a\":[\n    {\n      \"b\":[1,2],\n      \"c\":\"x,{\\\"]\"\n    }\n  ],\n  \"d\":{}\n}");
    EXPECT_EQ(PreviewLines("count,code\r\n", ExportFormat::ShoppingList).toStdString(), "count,code\r\n");
}

TEST_F(FrmExport, OffersWhatWorksInPlaceOfWhatCannotBeWritten) {
    Choose("cboFormat", Png);
    Choose("cboSize", PngScale);
    EXPECT_FALSE(IsShown("cmdPossible"));
    Find<QDoubleSpinBox>("spnScale").setValue(0.1);

    EXPECT_TRUE(Label("lblPlanned").starts_with("Picture too large: ")) << Label("lblPlanned");
    EXPECT_FALSE(IsEnabled("cmdExport"));
    ASSERT_TRUE(IsShown("cmdPossible"));
    EXPECT_EQ(Find<QAbstractButton>("cmdPossible").toolTip(), "The next round scale that works");
    ExpectNothingClipped();
    Press("cmdPossible");
    EXPECT_TRUE(IsEnabled("cmdExport"));
    EXPECT_FALSE(IsShown("cmdPossible"));
    EXPECT_GT(Find<QDoubleSpinBox>("spnScale").value(), 0.1);

    Choose("cboSize", PngPaper);
    Choose("cboPaper", 5); // A0
    Find<QSpinBox>("spnDots").setValue(2400);
    EXPECT_FALSE(IsEnabled("cmdExport"));
    EXPECT_EQ(Find<QAbstractButton>("cmdPossible").text(), "Take 287 dots per inch")
        << "128 million on 84.1 x 118.9 cm";
    Press("cmdPossible");
    EXPECT_EQ(Find<QSpinBox>("spnDots").value(), 287);
    EXPECT_TRUE(IsEnabled("cmdExport"));
}

/// 700 cm long.
Design LongStraight() {
    std::string straights;
    for (int i = 0; i < 20; ++i)
        straights += "C160 ";
    return ProjectOf(straights).Design;
}

TEST_F(FrmExport, BeginsWithAScaleThatThePaperTakes) {
    project_.Design = LongStraight();
    Open();
    Choose("cboFormat", Pdf);
    Choose("cboSize", 2);

    EXPECT_EQ(Find<QComboBox>("cboSize").currentText(), "To scale, on one sheet of the paper");
    EXPECT_EQ(Find<QDoubleSpinBox>("spnScale").value(), 30) << "26.9 on 26.1 cm of A4";
    EXPECT_TRUE(IsEnabled("cmdExport"));
    Choose("cboSize", 3);
    EXPECT_EQ(Find<QDoubleSpinBox>("spnScale").value(), 10) << "in tiles that works";
}

TEST_F(FrmExport, RemembersNoScaleThatItChoseItself) {
    const Design small = project_.Design;
    project_.Design = LongStraight();
    Open();
    Choose("cboFormat", Pdf);
    Choose("cboSize", 2);
    EXPECT_EQ(Find<QDoubleSpinBox>("spnScale").value(), 30);
    Press("cmdClose");

    project_.Design = small;
    Open();
    Choose("cboFormat", Pdf);
    Choose("cboSize", 2);
    EXPECT_EQ(Find<QDoubleSpinBox>("spnScale").value(), 10);
}

TEST_F(FrmExport, ExportsNothingThatCannotBeWritten) {
    Choose("cboFormat", Png);
    Choose("cboSize", PngScale);
    Find<QDoubleSpinBox>("spnScale").setValue(0.1);

    EXPECT_FALSE(IsEnabled("cmdExport"));

    Find<QDoubleSpinBox>("spnScale").setValue(10);
    EXPECT_TRUE(IsEnabled("cmdExport"));
}

} // namespace
} // namespace pistaro

// The file that the export dialog writes: its name, its format, what is asked and told about it.
#include "export_fixture.h"

namespace pistaro {
namespace {

TEST_F(FrmExport, WritesTheChosenTrackInTheChosenFormatAndStaysForTheNextFile) {
    Choose("cboFormat", Csv);
    Choose("cboTrack", 2);

    const std::string csv = Exported("x.csv");

    EXPECT_NE(csv.find("\r\n2,0,C157,"), std::string::npos);
    EXPECT_EQ(csv.find("C160"), std::string::npos);
    ASSERT_TRUE(IsOpen());
    ASSERT_EQ(prompts_.Dialogs.size(), 1U);
    EXPECT_EQ(prompts_.Dialogs[0].Filter, "Table of pieces (CSV)|*.csv");
    EXPECT_EQ(prompts_.Dialogs[0].DefaultName, "circuit.csv");
    Choose("cboFormat", Json);
    EXPECT_NE(Exported("x.json"), "");
    Press("cmdClose");
    EXPECT_FALSE(IsOpen());
}

TEST_F(FrmExport, WritesAPictureOfTheWidthThatIsAskedFor) {
    Choose("cboFormat", Png);
    Choose("cboSize", PngWidth);
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

TEST_F(FrmExport, AsksForAnotherFileWhereOneIsNotToBeReplaced) {
    WriteBytes(folder_ / "x.json", "old");
    Choose("cboFormat", Json);
    prompts_.Files = {folder_ / "x.json", folder_ / "y.json"};
    prompts_.Answers = {Answer::No};

    Press("cmdExport");

    EXPECT_EQ(prompts_.Asked[0].Text, "x.json is there already. Replace it?");
    EXPECT_EQ(BytesOf(folder_ / "x.json"), "old");
    EXPECT_NE(BytesOf(folder_ / "y.json"), "");
    ASSERT_EQ(prompts_.Dialogs.size(), 2U);
    EXPECT_EQ(prompts_.Dialogs[1].DefaultName, "x.json");
    EXPECT_EQ(prompts_.Dialogs[1].Folder, folder_.Path().string());
}

TEST_F(FrmExport, ReplacesAFileWhereItsUserAgreesAndKeepsAllAsItWasWhereNoneIsGiven) {
    WriteBytes(folder_ / "x.json", "old");
    Choose("cboFormat", Json);
    Choose("cboTrack", 2);
    prompts_.Files = {folder_ / "x.json", std::nullopt};
    prompts_.Answers = {Answer::No};
    Press("cmdExport");
    EXPECT_EQ(Find<QComboBox>("cboFormat").currentText(), "Layout (JSON)");
    EXPECT_EQ(Find<QComboBox>("cboTrack").currentText(), "Track 2");

    prompts_.Answers = {Answer::Yes};
    EXPECT_NE(Exported("x.json"), "old");
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

TEST_F(FrmExport, WritesTheFormatWhoseEndingIsTyped) {
    Choose("cboFormat", Csv);

    const std::string dxf = Exported("x.dxf");

    EXPECT_NE(dxf.find("$ACADVER"), std::string::npos) << dxf.substr(0, 40);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 2) << "it, and the settings";
    EXPECT_TRUE(prompts_.Dialogs[0].KeepsEnding);
    EXPECT_EQ(prompts_.Told.at(0).Text,
              (folder_ / "x.dxf").string() +
                  " is written.\n\nA CAD program such as LibreCAD opens it; its unit is the centimetre.");
    Open();
    EXPECT_EQ(Find<QComboBox>("cboFormat").currentText(), "Construction (DXF)");
}

TEST_F(FrmExport, ProposesItsOwnEndingForOneThatItDoesNotKnow) {
    Choose("cboFormat", Dxf);
    prompts_.Files = {folder_ / "c.jpg", std::nullopt, folder_ / "c.jpg"};
    prompts_.Answers = {Answer::Cancel, Answer::Ok};

    Press("cmdExport");
    EXPECT_EQ(prompts_.Asked.at(0).Text,
              "c.jpg cannot be written: files here end in .dxf, .png, .svg, .pdf, .csv or .json. Write c.dxf instead?");
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(std::filesystem::exists(folder_ / "c.dxf"));

    Press("cmdExport");
    EXPECT_NE(BytesOf(folder_ / "c.dxf").find("$ACADVER"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "c.jpg"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "c.jpg.dxf"));
}

TEST_F(FrmExport, AsksBeforeTheFileWithTheProposedEndingIsReplaced) {
    WriteBytes(folder_ / "c.png", "old");
    Choose("cboFormat", Png);
    prompts_.Files = {folder_ / "c.jpg", std::nullopt};
    prompts_.Answers = {Answer::Ok, Answer::No};

    Press("cmdExport");

    ASSERT_EQ(prompts_.Asked.size(), 2U);
    EXPECT_EQ(prompts_.Asked[1].Text, "c.png is there already. Replace it?");
    EXPECT_EQ(BytesOf(folder_ / "c.png"), "old");
}

TEST_F(FrmExport, WritesWhatIsToBeBoughtAsATableOfCountsAndPrices) {
    for (ProductStock& product : project_.Stock.Products)
        product = {};
    project_.Stock.Of(Pieces().FindHeadRow("C160")) = {0, 2.5F};
    project_.Stock.Of(Pieces().FindHeadRow("C157")) = {1, 1};
    Choose("cboFormat", ShoppingList);

    const std::string csv = Exported("x.csv");

    EXPECT_TRUE(csv.starts_with("count,code,name,price,sum\r\n")) << csv;
    EXPECT_NE(csv.find("1,C160,\"standard straight\",2.50,2.50\r\n"), std::string::npos) << csv;
    EXPECT_EQ(csv.find("C157"), std::string::npos) << "it is owned";
    EXPECT_EQ(prompts_.Dialogs.at(0).DefaultName, "circuit-shopping.csv");
    Open();
    EXPECT_EQ(Find<QComboBox>("cboFormat").currentText(), "Shopping list (CSV)") << "not the other table";
}

TEST_F(FrmExport, KeepsTheScaleWhenATypedEndingChangesTheFormat) {
    Choose("cboFormat", Png);
    Choose("cboSize", PngScale);
    Find<QDoubleSpinBox>("spnScale").setValue(5);
    Choose("cboTrack", 2);

    EXPECT_NE(Exported("X.SVG").find("width=\"5.1cm\" height=\"3.53125cm\""), std::string::npos);
}

TEST_F(FrmExport, PaintsNothingAsOwnedOrToBuyUnlessThatIsTicked) {
    Choose("cboFormat", Svg);
    EXPECT_EQ(Exported("plain.svg").find("#ff0000"), std::string::npos);

    Open();
    Press("chkMissing");
    EXPECT_NE(Exported("stock.svg").find("#ff0000"), std::string::npos);
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

} // namespace
} // namespace pistaro

// The build plan dialog, by its own controls.
#include "ui/frmBuildPlan.h"

#include "dialog_fixture.h"
#include "support/chain.h"
#include "support/fake_viewer.h"

namespace pistaro {
namespace {

class FrmBuildPlan : public DialogTest<frmBuildPlan> {
protected:
    FrmBuildPlan() {
        for (ProductStock& product : project_.Stock.Products)
            product = {};
        std::string straights;
        for (int i = 0; i < 31; ++i)
            straights += "C160 ";
        project_.Design = ProjectOf(straights, "", "C157").Design;
        Open();
    }

    void Choose(const char* list, const char* entry) const { Find<QComboBox>(list).setCurrentText(entry); }
    QImage Page() const { return Find<QLabel>("picPage").pixmap(Qt::ReturnByValue).toImage(); }

    void Write(const char* name) {
        prompts_.Files.push_back(folder_ / name);
        Press("cmdWrite");
    }
};

TEST_F(FrmBuildPlan, ShowsThePagesOneByOne) {
    EXPECT_EQ(Label("lblPage"), "Page 1 of 4");
    EXPECT_FALSE(Find<QToolButton>("cmdPrevious").isEnabled());
    const QImage first = Page();

    Press("cmdNext");
    EXPECT_EQ(Label("lblPage"), "Page 2 of 4");
    EXPECT_NE(Page(), first);
    Press("cmdNext");
    Press("cmdNext");
    EXPECT_FALSE(Find<QToolButton>("cmdNext").isEnabled());
    ExpectNothingClipped();

    for (int page = 0; page < 3; ++page)
        Press("cmdPrevious");
    EXPECT_EQ(Page(), first);
}

TEST_F(FrmBuildPlan, ShowsThePaperAndTheTrackThatAreChosen) {
    EXPECT_FALSE(Find<QComboBox>("cboPaper").isEnabled()) << "a web page has none";
    Choose("cboFormat", "Paper (PDF)");
    ASSERT_TRUE(Find<QComboBox>("cboPaper").isEnabled());
    Choose("cboPaper", "A5");
    EXPECT_EQ(Label("lblPage"), "Page 1 of 6") << "with less room for steps";

    Choose("cboTrack", "Track 3");
    EXPECT_EQ(Label("lblPage"), "Page 1 of 2") << "the head, and its step";
    EXPECT_EQ(Find<QComboBox>("cboTrack").count(), 3) << "track 2 is empty";
    EXPECT_TRUE(Label("lblFacts").starts_with("1 piece, laid in 1 step on ")) << Label("lblFacts");
}

TEST_F(FrmBuildPlan, TellsWhatIsLackingOnceItIsKnownWhatIsOwned) {
    EXPECT_TRUE(Label("lblFacts").ends_with("once Settings ▸ Loose Track knows what you own.")) << Label("lblFacts");

    project_.Stock.Of(Pieces().FindHeadRow("C160")).OwnedCount = 30;
    Open();

    EXPECT_TRUE(Label("lblFacts").ends_with("You lack 2 of these pieces: 1 × C157, 1 × C160")) << Label("lblFacts");
    ExpectNothingClipped();
}

TEST_F(FrmBuildPlan, WritesWhatIsChosenAndBeginsTheNextTimeAsItEnded) {
    const NoViewer none;
    Choose("cboFormat", "Paper (PDF)");
    Choose("cboPaper", "Letter");
    Choose("cboTrack", "Track 3");

    Write("x.pdf");

    EXPECT_TRUE(IsOpen());
    Press("cmdClose");
    EXPECT_FALSE(IsOpen());
    const std::string pdf = BytesOf(folder_ / "x.pdf");
    EXPECT_NE(pdf.find("/MediaBox [0 0 612.000000 792.000000]"), std::string::npos);
    EXPECT_NE(pdf.find("/Count 1\n"), std::string::npos);
    Open();
    EXPECT_EQ(Find<QComboBox>("cboFormat").currentText(), "Paper (PDF)");
    EXPECT_EQ(Find<QComboBox>("cboPaper").currentText(), "Letter");
}

TEST_F(FrmBuildPlan, StaysOpenWhenNoFileIsChosenOrItCannotBeWritten) {
    prompts_.Files = {std::nullopt, folder_ / "no" / "x.html"};

    Press("cmdWrite");
    EXPECT_TRUE(IsOpen());
    Press("cmdWrite");

    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(prompts_.Told.size(), 1U);
}

TEST_F(FrmBuildPlan, DrawsThePageAsLargeAsThereIsRoom) {
    Press("cmdNext");
    QTest::qWait(200); // until the first one is as large as its window
    const int height = Page().height();

    dialog_->resize(dialog_->size() + QSize(100, 100));

    EXPECT_TRUE(QTest::qWaitFor([&] { return Page().height() > height + 90; })) << height << " " << Page().height();
    EXPECT_TRUE(Label("lblPage").starts_with("Page 2 of ")) << "the same page";
}

TEST_F(FrmBuildPlan, ShowsTheFirstPagesOfALongPlan) {
    project_.Design.Circuit.Tracks[0].ElementCodes.assign(500, "C160");
    Open();

    EXPECT_TRUE(Label("lblPage").starts_with("Page 1 of ")) << Label("lblPage");
    EXPECT_TRUE(Label("lblPage").ends_with("; the first 8 are shown")) << Label("lblPage");
    ExpectNothingClipped();
}

} // namespace
} // namespace pistaro

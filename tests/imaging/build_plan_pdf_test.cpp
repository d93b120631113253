// The build plan on paper.
#include "imaging/build_plan_pdf.h"

#include "imaging/circuit_picture.h"
#include "pdf_reader.h"
#include "support/chain.h"

#include <QHashFunctions>

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class BuildPlanOnPaper : public testing::Test {
protected:
    static std::string Pdf(int straights, const char* paper = "A4") {
        std::string codes;
        for (int i = 0; i < straights; ++i)
            codes += "C160 ";
        return BuildPlanPdf(Pieces(), BuildPlanOf(Pieces(), ProjectOf(codes), AllTracks), *FindPaper(paper));
    }

    static bool HasPages(const std::string& pdf, int count) {
        return pdf.find("/Count " + std::to_string(count) + "\n") != std::string::npos;
    }

    OffscreenGraphics graphics_;
};

TEST_F(BuildPlanOnPaper, HasAHeadPageAndTwoStepsOnEachOther) {
    EXPECT_TRUE(HasPages(Pdf(0), 1)) << "nothing to lay";
    EXPECT_TRUE(HasPages(Pdf(30), 3));
    EXPECT_TRUE(HasPages(Pdf(31), 3));
    EXPECT_TRUE(HasPages(Pdf(70), 5));
    EXPECT_TRUE(HasPages(Pdf(30, "Letter"), 3));
}

TEST_F(BuildPlanOnPaper, BeginsWithTheStepsBelowTheHeadWhereThereIsRoom) {
    const auto pages = [](const std::string& codes) {
        return PagesOf(BuildPlanPdf(Pieces(), BuildPlanOf(Pieces(), ProjectOf(codes), AllTracks), PaperA4)).size();
    };
    const std::string quarter = "C151L C151L ";
    const std::string side = "C160 C160 C160 C160 ";
    const std::string flat = quarter + side + quarter + quarter + side + quarter;
    EXPECT_EQ(pages(quarter + side), 1U) << "one step, wider than high";
    EXPECT_EQ(pages(flat), 2U) << "an oval of 16 pieces in two steps, wider than high";
    EXPECT_EQ(pages(side + quarter + quarter + side + quarter + quarter), 2U) << "higher than wide";
}

TEST_F(BuildPlanOnPaper, HasFewerStepsOnASmallPage) { EXPECT_TRUE(HasPages(Pdf(40, "A5"), 5)); }

TEST_F(BuildPlanOnPaper, TellsWhatIsLeftOutOnAsManyLinesAsThatTakes) {
    const auto headPage = [](const std::string& unknown) {
        const BuildPlan plan = BuildPlanOf(Pieces(), ProjectOf("C160 " + unknown), AllTracks);
        return PagesOf(BuildPlanPdf(Pieces(), plan, PaperA4)).at(0);
    };
    const PdfPage one = headPage("X1");
    std::string codes;
    for (int i = 10; i < 20; ++i)
        codes += "LONGCODE" + std::to_string(i) + " ";
    const PdfPage ten = headPage(codes);

    EXPECT_EQ(ten.Texts, one.Texts + 2) << "about 210 characters on lines of 18 cm";
    const double down = one.Lines.at(0).FromY - ten.Lines.at(0).FromY;
    EXPECT_GT(down, 0.6) << "what follows stands below them";
    EXPECT_LT(down, 1.2);
}

TEST_F(BuildPlanOnPaper, IsTheSameOnEveryRun) {
    const std::string first = Pdf(25);
    for (int run = 0; run < 16; ++run) {
        QHashSeed::resetRandomGlobalSeed(); // as each start of the program does
        EXPECT_TRUE(Pdf(25) == first);
    }
}

} // namespace
} // namespace pistaro

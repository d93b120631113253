// guide.html, byte by byte.
#include "report/guide_page.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

const std::string BeforeTracks =
    "<html>\r\n"
    "<head>\r\n"
    "<title>Track Design Guide</title>\r\n"
    "</head>\r\n"
    "<hr>\r\n"
    "<center><h1>club night</h1></center>\r\n"
    "<center><b><i><font size=+1>created with Scalextric Pistaro</font></i></b></center>\r\n"
    "<br><hr>\r\n"
    "<h2>PICTURE</h2>\r\n"
    "<center><p><img SRC=\"track.gif\" ></center>\r\n"
    "<p><h2>TRACK DESCRIPTION</h2>\r\n"
    "<br>\r\n";
const std::string LastLine = "</font><br><hr></body></html>\r\n";

std::string PageOf(const std::string& track1, const std::string& track2 = "", const std::string& track3 = "") {
    return GuidePage(ProjectOf(track1, track2, track3).Design.Circuit, "club night");
}

std::string PageNamed(const std::string& name) { return GuidePage(EmptyCircuit(), name); }

TEST(GuidePage, OfThreeEmptyTracksHoldsNothingUnderTheDescription) { EXPECT_EQ(PageOf(""), BeforeTracks + LastLine); }

TEST(GuidePage, ATrackOfThreePiecesIsAHeadingThreePicturesEachWithAnArrowAndABreak) {
    EXPECT_EQ(PageOf("C160 C151L N10105R"), BeforeTracks +
                                                "<h3>Track 1</h3>\r\n"
                                                "<img SRC=\"C160.gif\" >&nbsp;->&nbsp;\r\n"
                                                "<img SRC=\"C151L.gif\" >&nbsp;->&nbsp;\r\n"
                                                "<img SRC=\"N10105R.gif\" >&nbsp;->&nbsp;\r\n"
                                                "<br>\r\n" +
                                                LastLine);
}

TEST(GuidePage, AnEmptyTrackLeavesNoTraceAndTheOthersKeepTheirNumbers) {
    EXPECT_EQ(PageOf("C160", "", "C159"), BeforeTracks +
                                              "<h3>Track 1</h3>\r\n"
                                              "<img SRC=\"C160.gif\" >&nbsp;->&nbsp;\r\n"
                                              "<br>\r\n"
                                              "<h3>Track 3</h3>\r\n"
                                              "<img SRC=\"C159.gif\" >&nbsp;->&nbsp;\r\n"
                                              "<br>\r\n" +
                                              LastLine);
}

TEST(GuidePage, AccentedNamesAreWrittenInTheEightBitCodePage) {
    EXPECT_NE(PageNamed("N\u00fcrburg").find("<h1>N\xFCrburg</h1>"), std::string::npos);
}

TEST(GuidePage, ANameIsTextAndNoPartOfThePage) {
    const std::string page = PageNamed("<script>alert(\"a\" & 'b')</script>");

    EXPECT_NE(page.find("<h1>&lt;script&gt;alert(&quot;a&quot; &amp; 'b')&lt;/script&gt;</h1>"), std::string::npos);
    EXPECT_EQ(page.find("<script>"), std::string::npos);
}

TEST(GuidePage, AnUnknownCodeCannotLeaveItsPicturesName) {
    const std::string page = PageOf("x\"><script>&");

    EXPECT_NE(page.find("<img SRC=\"x&quot;&gt;&lt;script&gt;&amp;.gif\" >&nbsp;->&nbsp;\r\n"), std::string::npos);
}

TEST(GuidePage, AnUnknownCodesPictureIsCalledAfterIt) {
    EXPECT_NE(PageOf("X1_y").find("<img SRC=\"X1_y.gif\" >"), std::string::npos);
}

} // namespace
} // namespace pistaro

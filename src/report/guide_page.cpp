// Line by line. Guides made by earlier versions look like this, to the missing body tag.
#include "report/guide_page.h"

#include "report/html_text.h"
#include "text/crlf_lines.h"
#include "text/number_text.h"
#include "text/windows1252.h"

namespace pistaro {

namespace {

std::string PictureTag(std::string_view file) { return "<img SRC=\"" + HtmlText(file) + "\" >"; }

void AddTrack(CrLfLines& page, int number, const Track& track) {
    if (track.ElementCodes.empty()) return;
    page << "<h3>Track" + SignedNumberText(number) + "</h3>";
    for (const std::string& code : track.ElementCodes)
        page << PictureTag(PiecePictureName(code)) + "&nbsp;->&nbsp;";
    page << "<br>";
}

} // namespace

std::string PiecePictureName(std::string_view code) { return std::string(code) + ".gif"; }

std::string GuidePage(const Circuit& circuit, const std::string& name) {
    CrLfLines page;
    page << "<html>"
         << "<head>"
         << "<title>Track Design Guide</title>"
         << "</head>"
         << "<hr>"
         << "<center><h1>" + HtmlText(name) + "</h1></center>"
         << "<center><b><i><font size=+1>created with Scalextric Pistaro</font></i></b></center>"
         << "<br><hr>"
         << "<h2>PICTURE</h2>"
         << "<center><p>" + PictureTag(TrackPictureName) + "</center>"
         << "<p><h2>TRACK DESCRIPTION</h2>"
         << "<br>";
    int number = 0;
    for (const Track& track : circuit.Tracks)
        AddTrack(page, ++number, track);
    page << "</font><br><hr></body></html>";
    return Windows1252FromUtf8(page.Take());
}

} // namespace pistaro

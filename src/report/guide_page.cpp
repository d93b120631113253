// Line by line. Guides made by earlier versions look like this, to the missing body tag.
#include "report/guide_page.h"

#include "text/crlf_lines.h"
#include "text/number_text.h"
#include "text/windows1252.h"

#include <array>

namespace pistaro {

namespace {

/// A circuit may come from anywhere: what is written in it must not become part of the page.
std::string Escaped(std::string_view text) {
    constexpr std::string_view marks = "&<>\"";
    constexpr std::array<std::string_view, marks.size()> entities{"&amp;", "&lt;", "&gt;", "&quot;"};
    std::string escaped;
    for (const char c : text) {
        const std::size_t mark = marks.find(c);
        escaped += mark == std::string_view::npos ? std::string_view(&c, 1) : entities[mark];
    }
    return escaped;
}

std::string PictureTag(std::string_view file) { return "<img SRC=\"" + Escaped(file) + "\" >"; }

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
         << "<center><h1>" + Escaped(name) + "</h1></center>"
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

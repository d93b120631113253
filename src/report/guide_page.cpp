// Line by line. Guides made by earlier versions look like this, to the missing body tag.
#include "report/guide_page.h"

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

void AddTrack(std::string& page, int number, const Track& track) {
    if (track.ElementCodes.empty()) return;
    page += "<h3>Track" + SignedNumberText(number) + "</h3>\r\n";
    for (const std::string& code : track.ElementCodes)
        page += PictureTag(PiecePictureName(code)) + "&nbsp;->&nbsp;\r\n";
    page += "<br>\r\n";
}

} // namespace

std::string PiecePictureName(std::string_view code) { return std::string(code) + ".gif"; }

std::string GuidePage(const Project& project) {
    std::string page = "<html>\r\n"
                       "<head>\r\n"
                       "<title>Track Design Guide</title>\r\n"
                       "</head>\r\n"
                       "<hr>\r\n"
                       "<center><h1>" +
                       Escaped(project.Name) +
                       "</h1></center>\r\n"
                       "<center><b><i><font size=+1>created with Scalextric Pistaro</font></i></b></center>\r\n"
                       "<br><hr>\r\n"
                       "<h2>PICTURE</h2>\r\n"
                       "<center><p>" +
                       PictureTag(TrackPictureName) +
                       "</center>\r\n"
                       "<p><h2>TRACK DESCRIPTION</h2>\r\n"
                       "<br>\r\n";
    int number = 0;
    for (const Track& track : project.Layout.Tracks)
        AddTrack(page, ++number, track);
    page += "</font><br><hr></body></html>\r\n";
    return Windows1252FromUtf8(page);
}

} // namespace pistaro

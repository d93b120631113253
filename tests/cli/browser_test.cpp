// The guide and the manual in a real browser, without a window: every picture must have loaded, every link lead
// somewhere.
#include "support/places.h"
#include "support/run_program.h"
#include "support/settings_bytes.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace pistaro {

using testing::HasSubstr;

namespace {

/// Counts a page's pictures when everything is loaded, and tells the names of those that are missing, and the links
/// that lead to no place of the page.
constexpr const char* Probe = R"(<script>
addEventListener("load", () => {
    const pictures = [...document.images];
    const missing = pictures.filter(each => !(each.complete && each.naturalWidth > 0)).map(each => each.getAttribute("src"));
    const links = [...document.links].map(each => each.getAttribute("href"));
    const broken = links.filter(each => !each.startsWith("#") || document.getElementById(each.slice(1)) === null);
    document.documentElement.setAttribute("data-probe",
        "pictures=" + pictures.length + " missing=[" + missing + "] broken=[" + broken + "]");
});
</script>
)";

/// The page as the browser has it in the end, a probe added at its end.
std::string LoadedPage(const std::filesystem::path& page) {
    const auto probed = page.parent_path() / "probed.html";
    WriteBytes(probed, BytesOf(page) + Probe);
    const TemporaryFolder profile;
    const auto dom = profile / "dom.html";
    const std::string command =
        "HOME='" + profile.Path().string() + "' chromium --headless --no-sandbox --disable-gpu " +
        "--no-first-run --disable-background-networking --disable-component-update " +
        "--disable-sync --user-data-dir='" + (profile / "data").string() + "' --dump-dom 'file://" + probed.string() +
        "' >'" + dom.string() + "' 2>'" + (profile / "log").string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << BytesOf(profile / "log");
    return BytesOf(dom);
}

class Browser : public testing::Test {
protected:
    Browser() {
        const std::string sample = (SourceFolder() / "samples" / "oval.trk").string();
        EXPECT_EQ(program_.Run({"guide", sample, "--out", "."}).ExitStatus, 0);
    }

    /// The manual in a folder where it may be changed.
    std::filesystem::path ManualCopy() const {
        auto copy = program_ / "manual";
        std::filesystem::copy(SourceFolder() / "manual", copy);
        return copy;
    }

    ProgramFolder program_;
};

} // namespace

TEST_F(Browser, LoadsEveryPictureOfTheGuide) {
    // The layout and fifteen pieces.
    EXPECT_THAT(LoadedPage(program_ / "guide.html"), HasSubstr("data-probe=\"pictures=16 missing=[] broken=[]\""));
}

TEST_F(Browser, WouldTellAMissingPictureOfTheGuide) {
    std::filesystem::remove(program_ / "track.gif");
    EXPECT_THAT(LoadedPage(program_ / "guide.html"), HasSubstr("missing=[track.gif]"));
}

TEST_F(Browser, LoadsEveryPictureOfTheManualAndFindsThePlacesOfItsLinks) {
    EXPECT_THAT(LoadedPage(ManualCopy() / "help.html"), HasSubstr("data-probe=\"pictures=83 missing=[] broken=[]\""));
}

TEST_F(Browser, WouldTellAMissingPictureAndABrokenLinkOfTheManual) {
    const auto manual = ManualCopy();
    std::filesystem::remove(manual / "about.png");
    const auto page = manual / "help.html";
    WriteBytes(page, Replaced(BytesOf(page), "id=\"menus\"", ""));

    EXPECT_THAT(LoadedPage(page), HasSubstr("data-probe=\"pictures=83 missing=[about.png] broken=[#menus]\""));
}

} // namespace pistaro

// The guide and the manual in a real browser, without a window: every picture must have loaded.
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace pistaro {

using testing::HasSubstr;

namespace {

/// Counts a page's pictures when everything is loaded, and tells the names of those that are missing.
constexpr const char* Probe = R"(<script>
addEventListener("load", () => {
    const pictures = [...document.images];
    const missing = pictures.filter(each => !(each.complete && each.naturalWidth > 0)).map(each => each.getAttribute("src"));
    document.documentElement.setAttribute("data-probe", "pictures=" + pictures.length + " missing=[" + missing + "]");
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
        const std::string sample = (std::filesystem::path(SOURCE_FOLDER) / "samples" / "oval.trk").string();
        EXPECT_EQ(program_.Run({"guide", sample, "--out", "."}).ExitStatus, 0);
    }

    ProgramFolder program_;
};

} // namespace

TEST_F(Browser, LoadsEveryPictureOfTheGuide) {
    // The layout and fifteen pieces.
    EXPECT_THAT(LoadedPage(program_ / "guide.html"), HasSubstr("data-probe=\"pictures=16 missing=[]\""));
}

TEST_F(Browser, WouldTellAMissingPictureOfTheGuide) {
    std::filesystem::remove(program_ / "track.gif");
    EXPECT_THAT(LoadedPage(program_ / "guide.html"), HasSubstr("missing=[track.gif]"));
}

TEST_F(Browser, LoadsEveryPictureOfTheManual) {
    const auto manual = program_ / "manual";
    std::filesystem::copy(std::filesystem::path(SOURCE_FOLDER) / "manual", manual);

    const std::string page = LoadedPage(manual / "help.html");

    EXPECT_THAT(page, HasSubstr("data-probe=\"pictures="));
    EXPECT_THAT(page, HasSubstr(" missing=[]\""));
}

} // namespace pistaro

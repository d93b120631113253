// Saving colours.
#include "editor/colour_settings.h"

#include "platform/fault.h"
#include "support/settings_on_disk.h"

namespace pistaro {
namespace {

constexpr ColourScheme Chosen{
    .Background = 16777215, .Inactive = 8421504, .Rail = 0, .NonOwned = 255, .Owned = 16711680, .Active = -2147483643};

class ColourSettings : public SettingsOnDisk {};

TEST_F(ColourSettings, SavedWithoutApplyingChangeTheFileButNotTheDrawing) {
    SaveColours(Pieces(), file_, Chosen, prompts_);

    EXPECT_EQ(OnDisk(),
              Replaced(WholeSettings(), "Background=1\r\nInactive=2\r\nRail=3\r\nNonOwned=4\r\nOwned=5\r\nActive=6\r\n",
                       "Background=16777215\r\nInactive=8421504\r\nRail=0\r\nNonOwned=255\r\nOwned=16711680\r\n"
                       "Active=-2147483643\r\n"));
    EXPECT_EQ(prompts_.Told, saved_);
    EXPECT_EQ(project_.Preferences.Colours.Rail, 3);
}

TEST_F(ColourSettings, SavedIntoAFileWithoutTheirSectionWriteNothingButSaySo) {
    Start("[Grid]\r\nType=1\r\nStep=5\r\n");

    SaveColours(Pieces(), file_, Chosen, prompts_);

    EXPECT_EQ(OnDisk(), "[Grid]\r\nType=1\r\nStep=5\r\n");
    EXPECT_EQ(prompts_.Told, saved_);
}

TEST_F(ColourSettings, SavedReplaceSixLinesWhateverTheirKeysAndCopyTheRestByteForByte) {
    Start(
        "; \xC4\x80\n[Colors]\na=1234567890\nInactive=2\nrail=3\nNONOWNED=4\nowned=5\nActive=6\n\n[My own]\ntext=\xE9");

    SaveColours(Pieces(), file_, Chosen, prompts_);

    EXPECT_EQ(OnDisk(),
              "; \xC4\x80\r\n[Colors]\r\nBackground=16777215\r\nInactive=8421504\r\nRail=0\r\nNonOwned=255\r\n"
              "Owned=16711680\r\nActive=-2147483643\r\n\r\n[My own]\r\ntext=\xE9\r\n");
}

TEST_F(ColourSettings, SavedIntoAFileThatEndsInsideTheirSectionLeaveItAlone) {
    const std::string broken = "[Colors]\r\nBackground=1\r\n";
    WriteBytes(file_, broken);
    EXPECT_THROW(SaveColours(Pieces(), file_, Chosen, prompts_), Fault);
    EXPECT_EQ(OnDisk(), broken);
}

} // namespace
} // namespace pistaro

// Any settings file that can be read stays one, whoever writes into it.
#include "platform/fault.h"
#include "storage/all_sections.h"
#include "storage/settings_file.h"
#include "support/pieces.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <array>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace pistaro {
namespace {

/// Settings files as people and other programs leave them: sections in any order, missing, twice, ended early by an
/// empty line, other lines between them, any of the line ends.
class RandomFile {
public:
    explicit RandomFile(std::mt19937& random) : random_(random) {}

    std::string Make() {
        bytes_.clear();
        lineEnd_ = Chosen({"\r\n", "\n", "\r"});
        for (auto sections = random_() % 12; sections > 0; --sections) {
            AddSection();
            for (auto others = random_() % 3; others > 0; --others)
                Add(Chosen({"", "; mine", "[Notes]", ".25", "N10111=4", "[grid]", " 3 "}));
        }
        return bytes_;
    }

private:
    std::string Chosen(const std::vector<std::string>& texts) { return texts[random_() % texts.size()]; }
    std::string Number() { return Chosen({"0", "1", "-7", "12.5", ".5", "1E3", "", "x"}); }
    void Add(const std::string& line) { bytes_ += line + lineEnd_; }

    void AddValues(const std::vector<std::string>& keys, bool mayEndEarly) {
        for (const std::string& key : keys) {
            if (mayEndEarly && random_() % 40 == 0) {
                Add("");
                return;
            }
            Add(key + Number());
        }
    }

    void AddProducts() {
        std::vector<std::string> keys;
        for (int line = 0; line < 28; ++line)
            keys.push_back(Chosen({"C151=", "C160=", "C8010=", "N10111=", "C999="}));
        AddValues(keys, true);
    }

    void AddRoom() {
        const auto points = random_() % 4;
        Add(" " + std::to_string(points) + " ");
        for (auto point = points; point > 0; --point)
            Add("       100       -50    1");
        Add(Number());
    }

    void AddSection() {
        const std::string header = Chosen({"[Working Directory]", "[Settings]", "[Units]", "[Grid]", "[Room]",
                                           "[My Loose Track]", "[Best Prices]", "[Colors]"});
        Add(header);
        if (header == "[Working Directory]") Add(Chosen({"/srv/", "C:\\Bahn\\", "", "/a%20b/"}));
        if (header == "[Settings]") AddValues({"MidX=", "MidY=", "Zoom=", "MWid="}, false);
        if (header == "[Units]") AddValues({"Type=", "Curr="}, false);
        if (header == "[Grid]") AddValues({"Type=", "Step="}, false);
        if (header == "[Room]") AddRoom();
        if (header == "[My Loose Track]" || header == "[Best Prices]") AddProducts();
        if (header == "[Colors]")
            AddValues({"Background=", "Inactive=", "Rail=", "NonOwned=", "Owned=", "Active="}, true);
    }

    std::mt19937& random_;
    std::string bytes_;
    std::string lineEnd_;
};

/// What a file says, section by section, as its writer would put it.
std::vector<std::vector<std::string>> ValuesOf(const std::string& bytes) {
    std::vector<std::vector<std::string>> values;
    for (const Section& section : AllSections(ParseSettings(Pieces(), bytes, "corvel.ini")))
        values.push_back(section.Lines);
    return values;
}

bool IsReadable(const std::string& bytes) {
    try {
        ParseSettings(Pieces(), bytes, "corvel.ini");
        return true;
    } catch (const Fault&) {
        return false;
    }
}

Settings OtherSettings() {
    Settings settings;
    settings.Preferences.WorkingDirectory = "/日本/";
    settings.MidX = 3;
    settings.Zoom = 77;
    settings.Preferences.MWid = 80;
    settings.Preferences.Units = {true, "DM"};
    settings.Preferences.Grid = {2, 9};
    settings.Room = {{{-100, 0, 0}, {100, 0, 1}, {0, 9, 1}}, 0.5F};
    settings.Preferences.Colours = {11, 12, 13, 14, 15, 16};
    settings.Stock.Products.assign(static_cast<std::size_t>(Pieces().Count()), {6, 1.5F});
    return settings;
}

TEST(Rewriting, OfAnyReadableFileLeavesItReadableAndEveryOtherSectionAsItWas) {
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    const std::vector<Section> writers = AllSections(OtherSettings());
    int readable = 0;
    for (int i = 0; i < 600; ++i) {
        const std::string bytes = RandomFile(random).Make();
        SCOPED_TRACE("seed " + std::to_string(seed) + ", file " + std::to_string(i) + ":\n" + bytes);
        if (!IsReadable(bytes)) continue;
        ++readable;
        const auto before = ValuesOf(bytes);
        for (std::size_t writer = 0; writer < writers.size(); ++writer) {
            const std::string replaced = ReplaceSections(bytes, "corvel.ini", {writers[writer]});

            ASSERT_TRUE(IsReadable(replaced)) << writers[writer].Header << " written:\n" << replaced;
            const auto after = ValuesOf(replaced);
            for (std::size_t section = 0; section < before.size(); ++section) {
                if (section == writer) continue;
                ASSERT_EQ(after[section], before[section]) << writers[writer].Header;
            }
        }
    }
    EXPECT_GT(readable, 300);
}

TEST(Rewriting, OfAnyReadableFileGivesTheSectionItsNewValueIfItIsThere) {
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    const std::vector<Section> writers = AllSections(OtherSettings());
    constexpr std::array<std::size_t, 6> shortSections{0, 1, 2,
                                                       3, 4, 7}; // not the lists, which lose what their 29th line says
    int changed = 0;
    for (int i = 0; i < 300; ++i) {
        const std::string bytes = RandomFile(random).Make();
        SCOPED_TRACE("seed " + std::to_string(seed) + ", file " + std::to_string(i) + ":\n" + bytes);
        if (!IsReadable(bytes)) continue;
        const auto before = ValuesOf(bytes);
        for (const std::size_t writer : shortSections) {
            const auto after = ValuesOf(ReplaceSections(bytes, "corvel.ini", {writers[writer]}));
            if (after[writer] == before[writer]) continue;
            ++changed;
            ASSERT_EQ(after[writer], writers[writer].Lines);
        }
    }
    EXPECT_GT(changed, 150);
}

TEST(Rewriting, ByTwoProgramsAtOnceLosesNothingOfEither) {
    const TemporaryFolder folder;
    const auto file = folder / "corvel.ini";
    WriteBytes(file, "[Grid]\r\nType=2\r\nStep=0\r\n[Units]\r\nType=0\r\nCurr=\r\n");
    constexpr int rounds = 150;
    const auto grid = [&](int round) { return GridOf({2, static_cast<std::int16_t>(round)}); };
    const auto units = [](int round) { return UnitsOf({true, std::to_string(round)}); };
    const auto write = [&](const auto& sectionOf) {
        for (int round = 1; round <= rounds; ++round) {
            const Section section = sectionOf(round);
            RewriteSettings(Pieces(), file, {section});
            ASSERT_THAT(BytesOf(file), testing::HasSubstr("\r\n" + section.Lines.back() + "\r\n"));
        }
    };

    std::jthread other([&] { write(units); });
    write(grid);
    other.join();

    EXPECT_EQ(BytesOf(file), "[Grid]\r\nType=2\r\nStep=150\r\n[Units]\r\nType=1\r\nCurr=150\r\n");
}

} // namespace
} // namespace pistaro

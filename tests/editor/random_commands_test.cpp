// Ten thousand random commands: after each of them the rules of the model hold.
#include "catalogue/track_geometry.h"
#include "editor/commands.h"
#include "editor/mouse_selection.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "platform/fault.h"
#include "render/stock_colours.h"
#include "support/chain.h"
#include "support/press.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

namespace pistaro {

namespace {

using Random = std::mt19937;

int Below(Random& random, int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

/// Answers at random, and chooses no file, a missing one or always the same one.
class RandomUser : public Prompts {
public:
    RandomUser(Random& random, const std::filesystem::path& folder) : random_(random), folder_(folder) {}

    void Tell(const Message&) override {}
    Answer Ask(const std::string&, Buttons buttons) override {
        const bool first = Below(random_, 2) == 0;
        if (buttons == Buttons::OkCancel) return first ? Answer::Ok : Answer::Cancel;
        return first ? Answer::Yes : Answer::No;
    }
    std::optional<std::filesystem::path> ChooseFile(const FileChoice&) override {
        switch (Below(random_, 4)) {
        case 0:
            return std::nullopt;
        case 1:
            return folder_ / "nofolder" / "x.trk";
        default:
            return folder_ / "x.trk";
        }
    }

private:
    Random& random_;
    const std::filesystem::path& folder_;
};

/// The products' used counts by an independent count: heads by their codes, right hands under the left ones.
std::map<std::string, int> Recount(const Circuit& circuit) {
    std::map<std::string, int> counts;
    for (const Track& track : circuit.Tracks) {
        for (std::string code : track.ElementCodes) {
            if (code.ends_with('R') && code != "C8010R") code.back() = 'L';
            ++counts[code];
        }
    }
    return counts;
}

void ExpectModelRules(const Project& project) {
    for (const Track& track : project.Layout.Tracks) {
        ASSERT_GE(track.CurrentElement, -1);
        ASSERT_LE(track.CurrentElement, track.ElementLastIndex());
        ASSERT_LE(track.ElementCodes.size(), 501U);
        ASSERT_TRUE(std::isfinite(track.TrackStartX) && std::isfinite(track.TrackStartY));
        ASSERT_GE(track.TrackStartHeading, 0);
        ASSERT_LE(track.TrackStartHeading, 6.2832F);
    }
    ASSERT_GE(project.Layout.CurrentTrack, 0);
    ASSERT_LE(project.Layout.CurrentTrack, 3);

    std::map<std::string, int> used;
    for (const CatalogueEntry& entry : project.Pieces) {
        if (entry.UsedCount != 0) used[std::string(entry.Code)] = entry.UsedCount;
    }
    ASSERT_EQ(used, Recount(project.Layout));

    const ViewSettings& view = project.View;
    ASSERT_GT(view.Width, 0);
    ASSERT_LE(view.HMov.Minimum, view.HMov.Value);
    ASSERT_LE(view.HMov.Value, view.HMov.Maximum);
    ASSERT_LE(view.VMov.Minimum, view.VMov.Value);
    ASSERT_LE(view.VMov.Value, view.VMov.Maximum);
    ASSERT_LE(std::fabs(view.MidX), 160);
    ASSERT_LE(std::fabs(view.MidY), 160);
}

/// A user who presses whatever is offered. Adding is what he likes best; `everything` lets him load, save and start
/// anew, too.
class RandomSession {
public:
    RandomSession(unsigned seed, bool everything) : random_(seed), everything_(everything) {}

    Project Design = ProjectOf("");
    int Faults = 0;
    int Refused = 0;
    std::size_t LongestTrack = 0;

    void Step() {
        const Project before = Design;
        const bool wasInserting = Design.InsertMode;
        last_.clear();
        try {
            Act();
        } catch (const Fault&) {
            ++Faults;
            ASSERT_EQ(Snapshot(Design), Snapshot(before)) << last_;
        }
        AssignStockColours(Design);
        ASSERT_NO_FATAL_FAILURE(ExpectModelRules(Design)) << last_;
        ExpectMode(wasInserting);
        for (const Track& track : Design.Layout.Tracks)
            LongestTrack = std::max(LongestTrack, track.ElementCodes.size());
    }

private:
    void Act() {
        const int dice = Below(random_, 100);
        if (dice < 5) return Select();
        if (dice < 8) return Click();
        if (dice < 11) return Scroll();
        const std::vector<Command>& commands = Commands();
        const Command* command = &commands[static_cast<std::size_t>(Below(random_, static_cast<int>(commands.size())))];
        if (dice < 60) command = FindCommand(Below(random_, 2) == 0 ? "add C151L" : "add N10105R");
        const bool replacesCircuit = command->Id == "new" || command->Id == "load";
        if (replacesCircuit && !everything_) return;
        last_ = command->Id;
        if (!command->WhyNot(Design).empty()) {
            ++Refused;
            return;
        }
        RandomUser user(random_, folder_.Path());
        command->Run(Design, user);
    }

    void Select() {
        last_ = "select";
        SelectElement(Design, Below(random_, 520) - 5);
    }

    void Click() {
        last_ = "click";
        SelectNearestElement(Design, {static_cast<float>(Below(random_, 1000) - 500), 0.25F});
    }

    void Scroll() {
        last_ = "scroll";
        ScrollHorizontally(Design, Below(random_, 321) - 160);
        ScrollVertically(Design, Below(random_, 321) - 160);
    }

    /// Only the switch and the choice of a track change the mode, so that the switch's caption names the other one.
    void ExpectMode(bool wasInserting) {
        const bool expected = last_ == "insert" && WhyNot(Design, "insert").empty()            ? true
                              : last_ == "build" && WhyNot(Design, "build").empty()            ? false
                              : last_ == "track 1" || last_ == "track 2" || last_ == "track 3" ? false
                                                                                               : wasInserting;
        ASSERT_EQ(Design.InsertMode, expected) << last_;
    }

    Random random_;
    bool everything_;
    TemporaryFolder folder_;
    std::string last_;
};

} // namespace

TEST(RandomCommands, KeepTheRulesOfTheModelThroughLoadsAndSaves) {
    for (const unsigned seed : {1U, 2U}) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomSession session(seed, true);
        for (int i = 0; i < 5000; ++i) {
            SCOPED_TRACE("command " + std::to_string(i));
            ASSERT_NO_FATAL_FAILURE(session.Step());
        }
        EXPECT_GT(session.Faults, 50);
        EXPECT_GT(session.Refused, 500);
    }
}

TEST(RandomCommands, KeepTheRulesOfTheModelOnFullTracks) {
    RandomSession session(3, false);

    for (int i = 0; i < 10000; ++i) {
        SCOPED_TRACE("seed 3, command " + std::to_string(i));
        ASSERT_NO_FATAL_FAILURE(session.Step());
    }

    EXPECT_EQ(session.LongestTrack, 501U);
}

} // namespace pistaro

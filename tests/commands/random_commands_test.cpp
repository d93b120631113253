// Ten thousand random commands: after each of them the rules of the model hold.
#include "catalogue/track_geometry.h"
#include "commands/session.h"
#include "editor/mouse_selection.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "model/stock.h"
#include "platform/fault.h"
#include "storage/circuit_file.h"
#include "support/chain.h"
#include "support/named_windows.h"
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
    RandomUser(Random& random, std::filesystem::path folder) : random_(random), folder_(std::move(folder)) {}

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
    std::filesystem::path folder_;
};

/// Commands that draw pictures or start a viewer take too long to be given thousands of times.
bool IsSlow(const Command& command) {
    return command.Id == "guide" || command.Id == "save picture" || command.Id == "manual" || command.Id == "copy" ||
           command.Id == "balance";
}

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

void ExpectCounts(const Project& project) {
    std::map<std::string, int> used;
    const UsedCounts counts = CountUsed(Pieces(), project.Design.Circuit);
    for (int row = 0; row < Pieces().Count(); ++row) {
        if (const int count = counts[static_cast<std::size_t>(row)]) used[Pieces()[row].Code] = count;
    }
    ASSERT_EQ(used, Recount(project.Design.Circuit));

    const StockColours colours = AssignStockColours(Pieces(), project.Stock, project.Design.Circuit);
    for (std::size_t at = 0; at < colours.size(); ++at)
        ASSERT_EQ(colours[at].size(), project.Design.Circuit.Tracks[at].ElementCodes.size());
}

void ExpectModelRules(const Project& project) {
    for (std::size_t at = 0; at < project.Design.Circuit.Tracks.size(); ++at) {
        const Track& track = project.Design.Circuit.Tracks[at];
        ASSERT_GE(project.EditState.CurrentElement[at], -1);
        ASSERT_LE(project.EditState.CurrentElement[at], track.ElementLastIndex());
        ASSERT_LE(track.ElementCodes.size(), 501U);
        ASSERT_TRUE(std::isfinite(track.TrackStartX) && std::isfinite(track.TrackStartY));
        ASSERT_GE(track.TrackStartHeading, 0);
        ASSERT_LE(track.TrackStartHeading, 6.2832F);
    }
    ASSERT_GE(project.EditState.CurrentTrack, 0);
    ASSERT_LE(project.EditState.CurrentTrack, 3);

    const ViewSettings& view = project.Design.View;
    ASSERT_GT(view.Width, 0);
    ASSERT_LE(view.HMov.Minimum, view.HMov.Value);
    ASSERT_LE(view.HMov.Value, view.HMov.Maximum);
    ASSERT_LE(view.VMov.Minimum, view.VMov.Value);
    ASSERT_LE(view.VMov.Value, view.VMov.Maximum);
    const auto reach = [](const ScrollBar& bar) { return std::max(std::abs(bar.Minimum), std::abs(bar.Maximum)); };
    ASSERT_LE(std::fabs(view.MidX), reach(view.HMov));
    ASSERT_LE(std::fabs(view.MidY), reach(view.VMov));
}

/// A user who presses whatever is offered. Adding is what he likes best; `everything` lets him load, save and start
/// anew, too.
class RandomSession {
public:
    RandomSession(unsigned seed, bool everything) : random_(seed), everything_(everything) {
        session_.Windows = &windows_;
        session_.Now = [this] { return now_ += std::chrono::minutes(1); }; // no two moves are one step
        observation_ = session_.Observe([&](const Changes& changes) { heard_.push_back(changes); });
    }

    int Faults = 0;
    int Refused = 0;
    int Steps = 0;
    std::size_t LongestTrack = 0;

    void Step() {
        const Project before = session_.Project;
        const Project& after = session_.Project;
        last_.clear();
        heard_.clear();
        windows_.Opened.clear();
        try {
            Act();
        } catch (const Fault&) {
            ++Faults;
            ASSERT_TRUE(after == before) << last_;
        }
        ASSERT_NO_FATAL_FAILURE(ExpectModelRules(after)) << last_;
        if (after.Design.Circuit != before.Design.Circuit) {
            ASSERT_NO_FATAL_FAILURE(ExpectCounts(after)) << last_;
        }
        ASSERT_NO_FATAL_FAILURE(ExpectMode(before.EditState.InsertMode));
        ASSERT_NO_FATAL_FAILURE(ExpectHeard(before));
        ASSERT_NO_FATAL_FAILURE(ExpectHistory(before));
        for (const Track& track : after.Design.Circuit.Tracks)
            LongestTrack = std::max(LongestTrack, track.ElementCodes.size());
    }

private:
    void Act() {
        const int dice = Below(random_, 100);
        if (dice < 5) return Select();
        if (dice < 8) return Click();
        if (dice < 11) return Scroll();
        const std::vector<Command>& rows = session_.Commands.Rows();
        const Command* command = &rows[static_cast<std::size_t>(Below(random_, static_cast<int>(rows.size())))];
        if (dice < 60) command = session_.Commands.Find(Below(random_, 2) == 0 ? "add C151L" : "add N10105R");
        const bool replacesCircuit = command->Id == "new" || command->Id == "load" || command->Id == "tour";
        if ((replacesCircuit && !everything_) || IsSlow(*command)) return;
        if (!command->WhyNot(session_).empty()) {
            ++Refused;
            return;
        }
        last_ = command->Id;
        session_.Run(*command);
    }

    void Select() {
        SelectElement(session_.Project.Design.Circuit, session_.Project.EditState, Below(random_, 520) - 5);
    }

    void Click() {
        SelectNearestElement(Pieces(), session_.Project.Design.Circuit, session_.Project.EditState,
                             {static_cast<float>(Below(random_, 1000) - 500), 0.25F});
    }

    void Scroll() {
        ViewSettings& view = session_.Project.Design.View;
        ScrollHorizontally(view, view.HMov.Minimum + Below(random_, 321)); // as far as the bars reach
        ScrollVertically(view, view.VMov.Minimum + Below(random_, 321));
    }

    /// Only the switch, the choice of a track and the tour change the mode, so that the switch's caption names the
    /// other one.
    void ExpectMode(bool wasInserting) {
        const bool tours = windows_.Opened == "tour ";
        const bool leaves = tours || last_ == "build" || last_ == "track 1" || last_ == "track 2" || last_ == "track 3";
        const bool expected = last_ == "insert" || (wasInserting && !leaves);
        ASSERT_EQ(session_.Project.EditState.InsertMode, expected) << last_;
    }

    /// Observers hear once of a command, and of all that it changed.
    void ExpectHeard(const Project& before) {
        if (last_.empty()) return;
        const Project& after = session_.Project;
        const Changes expected{.Circuit = before.Design.Circuit != after.Design.Circuit,
                               .Room = before.Design.Room != after.Design.Room,
                               .View = before.Design.View != after.Design.View,
                               .EditState = before.EditState != after.EditState,
                               .Stock = before.Stock != after.Stock,
                               .Preferences = before.Preferences != after.Preferences};
        ASSERT_EQ(heard_.size(), 1U) << last_;
        Changes compared = heard_[0];
        compared.Saved = compared.OtherCircuit = compared.Discarded = compared.Looks =
            false; // not to be seen from the project
        ASSERT_TRUE(compared == expected) << last_;
    }

    /// Each state is what stood there, and a step that is taken back and done again comes to the same bytes.
    void ExpectHistory(const Project& before) {
        const History& history = session_.History();
        if (last_ == "undo" || last_ == "redo") {
            ASSERT_EQ(ContentOf(session_.Project), states_[history.Present()]) << last_;
        } else if (history.Present() != present_) {
            ASSERT_EQ(history.Present(), present_ + 1) << last_;
            if (states_.empty()) states_.push_back(ContentOf(before));
            states_.resize(history.Present());
            states_.push_back(ContentOf(session_.Project));
            const Project after = session_.Project;
            ASSERT_NO_FATAL_FAILURE(ExpectStep("undo", before));
            ASSERT_NO_FATAL_FAILURE(ExpectStep("redo", after));
            ++Steps;
        } else {
            ASSERT_TRUE(before.Design.Circuit == session_.Project.Design.Circuit) << last_;
        }
        present_ = history.Present();
    }

    void ExpectStep(const char* id, const Project& expected) {
        session_.Run(*session_.Commands.Find(id));
        const EditState& edit = session_.Project.EditState;
        ASSERT_EQ(CircuitBytes(session_.Project.Design), CircuitBytes(expected.Design)) << id << " of " << last_;
        ASSERT_EQ(edit.CurrentTrack, expected.EditState.CurrentTrack) << id << " of " << last_;
        ASSERT_EQ(edit.CurrentElement, expected.EditState.CurrentElement) << id << " of " << last_;
        ASSERT_EQ(edit.DataChanged, expected.EditState.DataChanged) << id << " of " << last_;
        ASSERT_EQ(edit.File, expected.EditState.File) << id << " of " << last_;
    }

    /// What a state holds, as bytes: all of the design but where the view stands, which zoom and scroll bars move.
    static std::string ContentOf(const Project& project) {
        Design design = project.Design;
        design.View = {};
        return CircuitBytes(design);
    }

    Random random_;
    std::chrono::steady_clock::time_point now_{};
    std::vector<std::string> states_;
    std::size_t present_ = 0;
    bool everything_;
    TemporaryFolder folder_;
    RandomUser user_{random_, folder_.Path()};
    NamedWindows windows_;
    Session session_{Pieces(), user_, ProjectOf(""), {}};
    std::vector<Changes> heard_;
    Observation observation_;
    std::string last_; ///< the command that was run, if one was
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
        EXPECT_GT(session.Steps, 1000);
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

// The built program, killed at any moment: every file that it writes is whole, the old one or the new one. A
// hundred kills here, two thousand by ./soak.
#include "commands/circuit_commands.h"
#include "commands/recovery.h"
#include "editor/start_up.h"
#include "faults/tree.h"
#include "storage/circuit_file.h"
#include "storage/settings_file.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/pieces.h"
#include "support/places.h"
#include "support/run_program.h"
#include "support/scripted_prompts.h"
#include "support/settings_bytes.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace pistaro {

namespace {

using std::chrono::microseconds;
using testing::AnyOf;

/// What a process does until it ends.
using Body = std::function<void()>;

/// The program in a folder, its script in "script.txt" there, its words nowhere.
Body ProgramIn(const ProgramFolder& folder, const std::vector<std::string>& arguments) {
    return [&folder, arguments] {
        std::vector<char*> words{const_cast<char*>(Program())};
        for (const std::string& argument : arguments)
            words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::execv(Program(), words.data());
        ::_exit(127);
    };
}

/// Somebody at work in a folder, which is his home.
class RunningProcess {
public:
    RunningProcess(const ProgramFolder& folder, const Body& body) {
        process_ = ::fork();
        if (process_ != 0) return;
        const int nowhere = ::open("/dev/null", O_RDWR);
        for (const int stream : {0, 1, 2})
            ::dup2(nowhere, stream);
        ::setenv("HOME", folder.Path().c_str(), 1);
        ::unsetenv("XDG_CONFIG_HOME");
        ::unsetenv("XDG_DATA_HOME");
        if (::chdir(folder.Path().c_str()) == 0) body();
        ::_exit(0);
    }
    ~RunningProcess() { Wait(); }
    RunningProcess(const RunningProcess&) = delete;
    RunningProcess& operator=(const RunningProcess&) = delete;

    void Kill() const { ::kill(process_, SIGKILL); }

    /// Its status, as the system tells it.
    int Wait() {
        if (process_ > 0) ::waitpid(process_, &status_, 0);
        process_ = 0;
        return status_;
    }

private:
    pid_t process_ = 0;
    int status_ = 0;
};

/// What a killed program may leave besides: the temporary file that it was about to rename, swept by a later start.
void RemoveTemporaries(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> left;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().filename().string().starts_with(".pistaro-")) left.push_back(entry.path());
    }
    for (const std::filesystem::path& file : left)
        std::filesystem::remove(file);
}

class Kills : public testing::Test {
protected:
    void Lay() const {
        for (const auto& entry : std::filesystem::directory_iterator(folder_.Path()))
            std::filesystem::remove_all(entry);
        WriteBytes(folder_ / "oval.trk", CircuitText("C160 C159"));
        WriteBytes(folder_ / "corvel.ini", WholeSettings());
        WriteBytes(folder_ / "script.txt", script_);
    }

    /// Kills the process as often as this test is due, at any moment of its work, and calls `look` each time.
    void KillAtAnyMoment(const Body& body, const std::function<void()>& look) {
        Lay();
        const microseconds duration = DurationOf(body);
        const auto seed = std::random_device{}();
        std::mt19937 random(seed);
        const int kills = std::getenv("PISTARO_SOAK") != nullptr ? 200 : 10;
        int killed = 0;
        for (int tries = 0; killed < kills; ++tries) {
            ASSERT_LT(tries, 20 * kills) << "it ends by itself";
            const microseconds moment(random() % static_cast<unsigned>(duration.count()));
            SCOPED_TRACE("seed " + std::to_string(seed) + ", killed after " + std::to_string(moment.count()) + " us");
            Lay();
            {
                RunningProcess process(folder_, body);
                std::this_thread::sleep_for(moment);
                process.Kill();
                killed += WIFSIGNALED(process.Wait());
            }
            RemoveTemporaries(folder_.Path());
            look();
        }
    }

    /// The same for work that ends with these files written: each is the old or the new.
    void ExpectWhole(const Body& body) {
        Lay();
        const Tree before = TreeBelow(folder_.Path());
        DurationOf(body);
        const Tree after = TreeBelow(folder_.Path());
        ASSERT_NE(before, after);
        KillAtAnyMoment(body, [&] { ExpectOldOrNew(TreeBelow(folder_.Path()), before, after); });
    }

    void ExpectWhole(const std::vector<std::string>& arguments) { ExpectWhole(ProgramIn(folder_, arguments)); }

    /// The circuit as it was, or with any number of C160s added.
    void ExpectChainOfStraights() const {
        const Design saved = ReadCircuit(folder_ / "oval.trk");
        std::string codes = "C160 C159";
        for (std::size_t piece = 2; piece < saved.Circuit.Tracks[0].ElementCodes.size(); ++piece)
            codes += " C160";
        EXPECT_EQ(BytesOf(folder_ / "oval.trk"), CircuitText(codes));
    }

    ProgramFolder folder_;
    std::string script_;

private:
    /// How long it takes when it is let alone.
    microseconds DurationOf(const Body& body) const {
        const auto begin = std::chrono::steady_clock::now();
        RunningProcess process(folder_, body);
        EXPECT_EQ(process.Wait(), 0);
        return std::chrono::duration_cast<microseconds>(std::chrono::steady_clock::now() - begin);
    }
};

} // namespace

TEST_F(Kills, DuringAnEditingScriptLeaveTheCircuitAsItWasSavedOnce) {
    constexpr int saves = 30;
    for (int save = 0; save < saves; ++save)
        script_ += "add C160\nsave oval.trk\n";

    KillAtAnyMoment(ProgramIn(folder_, {"script", "script.txt", "oval.trk", "--settings", "corvel.ini"}),
                    [&] { ExpectChainOfStraights(); });
}

TEST_F(Kills, DuringPlainSavesLeaveTheCircuitAsItWasSavedOnce) {
    const auto saveAgainAndAgain = [&] {
        ScriptedPrompts nobody;
        Session session(Pieces(), nobody, ProjectOf(""), {});
        LoadFileCommand(session, folder_ / "oval.trk");
        constexpr int saves = 200;
        for (int save = 0; save < saves; ++save) {
            session.Run(*session.Commands.Find("add C160"));
            session.Run(*session.Commands.Find("plain save"));
        }
    };

    KillAtAnyMoment(saveAgainAndAgain, [&] { ExpectChainOfStraights(); });
}

TEST_F(Kills, DuringTheDialogsSavesLeaveSettingsThatOneOfThemSaved) {
    for (int round = 0; round < 5; ++round) {
        script_ += "area step=7 save\nstock C160=17 save\ncolours rail=111 save\n"
                   "area step=9 save\nstock C160=0 save\ncolours rail=3 save\n";
    }
    const Settings whole = ParseSettings(Pieces(), WholeSettings(), "whole");
    const int row = Pieces().FindHeadRow("C160");

    KillAtAnyMoment(ProgramIn(folder_, {"script", "script.txt", "--settings", "corvel.ini"}), [&] {
        Settings left = ReadSettings(Pieces(), folder_ / "corvel.ini");
        EXPECT_THAT(std::exchange(left.Preferences.Grid.Step, 10), AnyOf(10, 7, 9));
        EXPECT_THAT(std::exchange(left.Stock.Of(row).OwnedCount, 0), AnyOf(0, 17));
        EXPECT_THAT(std::exchange(left.Preferences.Colours.Rail, 3), AnyOf(3, 111));
        EXPECT_EQ(left, whole) << BytesOf(folder_ / "corvel.ini");
    });
}

TEST_F(Kills, DuringAPictureLeaveItWholeOrAway) {
    ExpectWhole({"picture", "oval.trk", "--out", "track.png", "--size", "300"});
}

TEST_F(Kills, DuringTheShoppingListLeaveItWholeOrAway) { ExpectWhole({"shop", "oval.trk"}); }

TEST_F(Kills, DuringTheGuideLeaveEachFileWholeOrAway) { ExpectWhole({"guide", "oval.trk"}); }

TEST_F(Kills, DuringAnExportLeaveItWholeOrAway) {
    for (const char* const name : {"track.pdf", "track.dxf"})
        ExpectWhole({"export", "oval.trk", "--out", name});
}

TEST_F(Kills, DuringABuildPlanLeaveItWholeOrAway) { ExpectWhole({"plan", "oval.trk", "--out", "plan.html"}); }

TEST_F(Kills, DuringALayingLeaveEachCircuitWholeOrAway) {
    ExpectWhole({"generate", "--area", "200x200", "--pieces", "C151=8", "--count", "1", "--out", "found"});
}

TEST_F(Kills, DuringAFirstStartLeaveEachFileWholeOrAway) {
    ExpectWhole([&] { StartDesigner(Pieces(), folder_ / "config" / "pistaro" / "corvel.ini"); });
}

namespace {

using Clock = std::chrono::steady_clock; ///< the same in all programs

/// Somebody who moves the track to the right without end, and writes down when each move was done.
class EndlessWork {
public:
    explicit EndlessWork(const std::filesystem::path& folder) : folder_(folder) {
        std::filesystem::create_directory(folder_);
        process_ = ::fork();
        if (process_ == 0) Move();
    }

    /// Gives the time of the kill.
    Clock::time_point Kill() const {
        const auto now = Clock::now();
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
        return now;
    }

    /// How many moves were done at that time.
    int DoneAt(Clock::time_point time) const {
        std::ifstream times(folder_ / "times");
        int done = 0;
        for (Clock::rep at = 0; times >> at && Clock::time_point(Clock::duration(at)) <= time;)
            ++done;
        return done;
    }

    /// How many moves the recovery file knows of; -1 where there is none.
    int Recovered() const {
        constexpr float trackWidth = 15.5F;
        const std::vector<RecoveredWork> works = WithContent(FindRecoveredWork(folder_ / "recovery"));
        if (works.empty()) return -1;
        EXPECT_EQ(works.size(), 1U);
        return static_cast<int>(works[0].Content->Circuit.Tracks[0].TrackStartX / trackWidth);
    }

private:
    [[noreturn]] void Move() const {
        ScriptedPrompts nobody;
        Session session(Pieces(), nobody, ProjectOf("C160 C159"), {});
        const Recovery recovery(session, folder_ / "recovery", [](const std::function<void()>&) {});
        std::ofstream times(folder_ / "times");
        for (;;) {
            session.Run(*session.Commands.Find("move right"));
            times << Clock::now().time_since_epoch().count() << std::endl;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    std::filesystem::path folder_;
    pid_t process_ = 0;
};

} // namespace

TEST(KillsOfWork, LoseAtMostTheChangesOfTheLastFiveSeconds) {
    constexpr std::chrono::seconds promised(5);
    const TemporaryFolder folder;
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    const int rounds = std::getenv("PISTARO_SOAK") != nullptr ? 20 : 1;
    int recovered = 0;
    for (int round = 0; round < rounds; ++round) {
        std::vector<EndlessWork> works;
        for (int number = 0; number < 10; ++number)
            works.emplace_back(folder / std::to_string(10 * round + number));
        std::this_thread::sleep_for(promised);
        for (const EndlessWork& work : works) {
            std::this_thread::sleep_for(std::chrono::milliseconds(random() % 600));
            SCOPED_TRACE("seed " + std::to_string(seed));

            const Clock::time_point killed = work.Kill();

            const int found = work.Recovered();
            EXPECT_GE(found, work.DoneAt(killed - promised));
            EXPECT_LE(found, work.DoneAt(killed) + 1);
            recovered += found > 0 ? 1 : 0;
        }
    }
    EXPECT_EQ(recovered, 10 * rounds);
}

} // namespace pistaro

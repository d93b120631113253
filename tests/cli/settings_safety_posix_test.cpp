// What becomes of the settings file when a save is killed, or cannot be done: the built program, run for real.
#include "support/circuit_text.h"
#include "support/places.h"
#include "support/run_program.h"
#include "support/settings_bytes.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace pistaro {

using testing::HasSubstr;

namespace {

/// The program running a script, its output in a pipe.
class RunningScript {
public:
    RunningScript(const std::filesystem::path& script, const std::filesystem::path& settings,
                  const std::function<void()>& prepare = {}, const std::filesystem::path& program = Program()) {
        std::array<int, 2> pipe{};
        if (::pipe(pipe.data()) != 0) throw std::runtime_error("no pipe");
        process_ = ::fork();
        if (process_ == 0) {
            ::dup2(pipe[1], 1);
            ::dup2(pipe[1], 2);
            if (prepare) prepare();
            ::execl(program.c_str(), program.c_str(), "script", script.c_str(), "--settings", settings.c_str(),
                    nullptr);
            ::_exit(127);
        }
        ::close(pipe[1]);
        output_ = pipe[0];
    }
    ~RunningScript() { ::close(output_); }
    RunningScript(const RunningScript&) = delete;
    RunningScript& operator=(const RunningScript&) = delete;

    /// Waits for the next bytes of output; empty when there are no more.
    std::string Read() const {
        std::array<char, 4096> buffer{};
        const ssize_t count = ::read(output_, buffer.data(), buffer.size());
        return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
    }

    std::string ReadAll() const {
        std::string all;
        for (std::string part = Read(); !part.empty(); part = Read())
            all += part;
        return all;
    }

    void Kill() const { ::kill(process_, SIGKILL); }

    int Wait() const {
        int status = 0;
        ::waitpid(process_, &status, 0);
        return status;
    }

private:
    pid_t process_;
    int output_;
};

class SettingsSafety : public testing::Test {
protected:
    SettingsSafety() {
        WriteBytes(settings_, WholeSettings());
        WriteBytes(folder_ / "corvel.ini.bak", "mine");
    }

    void Script(const std::string& lines) const { WriteBytes(script_, lines); }

    /// Runs a script as an ordinary user where the settings file stands in a folder that may not be written, the
    /// script's own may. Root may write everywhere, and so becomes nobody, who may not reach the folder that the
    /// program was built in.
    void ExpectRefusedInReadOnlyFolder(const std::string& lines) const {
        const auto program = scriptFolder_ / "pistaro";
        std::filesystem::copy_file(Program(), program, std::filesystem::copy_options::skip_existing);
        const auto asNobody = [] {
            if (::getuid() == 0 && ::setuid(65534) != 0) ::_exit(126);
        };
        Script(lines);
        std::filesystem::permissions(scriptFolder_.Path(), std::filesystem::perms{0777});
        std::filesystem::permissions(folder_.Path(), std::filesystem::perms{0555});
        ExpectRefused("Permission denied", asNobody, program);
        std::filesystem::permissions(folder_.Path(), std::filesystem::perms{0755});
    }

    /// A script that cannot save: it is told why, and the file is as it was.
    void ExpectRefused(const std::string& reason, const std::function<void()>& prepare,
                       const std::filesystem::path& program = Program()) const {
        const RunningScript script(script_, settings_, prepare, program);
        const std::string output = script.ReadAll();
        const int status = script.Wait();
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 1);
        EXPECT_THAT(output, HasSubstr(reason + ": " + settings_.string()));
        EXPECT_EQ(BytesOf(settings_), WholeSettings());
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 2);
        EXPECT_EQ(BytesOf(folder_ / "corvel.ini.bak"), "mine");
    }

    TemporaryFolder folder_, scriptFolder_;
    std::filesystem::path settings_ = folder_ / "corvel.ini";
    std::filesystem::path script_ = scriptFolder_ / "script.txt";
};

} // namespace

TEST_F(SettingsSafety, AKilledSaveLeavesTheOldFileOrTheNewOneWhole) {
    constexpr int kills = 300;
    constexpr int longestDelay = 4000; // microseconds, some saves' time
    std::string lines;
    for (int save = 0; save < 500; ++save)
        lines += "colours rail=111 save\ncolours rail=222222 save\n";
    Script(lines);
    const std::string one = Replaced(WholeSettings(), "Rail=3", "Rail=111");
    const std::string other = Replaced(WholeSettings(), "Rail=3", "Rail=222222");
    std::mt19937 random(20260101);
    int killed = 0;
    int ones = 0;

    for (int round = 0; round < kills; ++round) {
        const RunningScript script(script_, settings_);
        ASSERT_THAT(script.Read(), HasSubstr("Settings saved."));
        std::this_thread::sleep_for(std::chrono::microseconds(random() % longestDelay));
        script.Kill();
        killed += WIFSIGNALED(script.Wait());
        const std::string left = BytesOf(settings_);
        ASSERT_TRUE(left == one || left == other) << "round " << round << ":\n" << left;
        ones += left == one;
    }

    EXPECT_EQ(killed, kills);
    EXPECT_GT(ones, 0);
    EXPECT_LT(ones, kills);
    EXPECT_EQ(BytesOf(folder_ / "corvel.ini.bak"), "mine");
}

TEST_F(SettingsSafety, AFullDiskIsToldAndTheFileStays) {
    const auto fullDisk = [] {
        const rlimit limit{100, 100};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    };
    for (const char* line : {"colours save", "area save", "stock save"}) {
        Script(line);
        ExpectRefused("Disk full", fullDisk);
    }
}

TEST_F(SettingsSafety, AReadOnlyFolderIsToldAndTheFileStays) {
    for (const char* line : {"colours save", "area save", "stock save"})
        ExpectRefusedInReadOnlyFolder(line);
}

TEST_F(SettingsSafety, AFolderThatTheFileCannotTakeIsToldWhenTheCircuitIsSavedOrLoaded) {
    const auto saved = scriptFolder_ / "saved.trk";
    ExpectRefusedInReadOnlyFolder("add C160\nsave " + saved.string() + "\n");
    EXPECT_EQ(BytesOf(saved), CircuitText("C160"));

    ExpectRefusedInReadOnlyFolder("load " + saved.string() + "\n");
}

TEST_F(SettingsSafety, ASettingsPathThatIsAFolderIsTold) {
    Script("colours save");
    const RunningScript script(script_, folder_.Path());
    EXPECT_THAT(script.ReadAll(), HasSubstr("Path/File access error: " + folder_.Path().string() + ": is a folder"));
    EXPECT_EQ(WEXITSTATUS(script.Wait()), 1);
    EXPECT_EQ(BytesOf(settings_), WholeSettings());
}

} // namespace pistaro

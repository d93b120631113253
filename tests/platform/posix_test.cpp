// What only Linux and its kin have: rights, links, pipes, size limits, signals. Refusals are tried as a user without
// privileges, because to root the system refuses little.
#include "platform/files.h"
#include "platform/places.h"
#include "platform/processes.h"
#include "support/fault_of.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <poll.h>
#include <random>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace pistaro {
namespace {

constexpr uid_t Nobody = 65534;

/// The fault that `action` ends with in a child process, after `prepare` there.
std::string FaultInChild(const std::function<void()>& prepare, const std::function<void()>& action) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return "no pipe";
    const pid_t child = ::fork();
    if (child == 0) {
        prepare();
        const std::string fault = FaultOf(action);
        ::_exit(::write(ends[1], fault.data(), fault.size()) < 0 ? 1 : 0);
    }
    ::close(ends[1]);
    std::string fault;
    std::array<char, 1024> buffer{};
    for (ssize_t count = 0; (count = ::read(ends[0], buffer.data(), buffer.size())) > 0;)
        fault.append(buffer.data(), static_cast<std::size_t>(count));
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return fault;
}

void DropPrivileges() {
    if (::geteuid() != 0) return;
    if (::setgid(Nobody) != 0 || ::setuid(Nobody) != 0) ::_exit(2);
}

std::string FaultAsOrdinaryUser(const std::function<void()>& action) { return FaultInChild(DropPrivileges, action); }

/// Of the groups that this process belongs to the last, which is its main one where it has no other.
gid_t LastOwnGroup() {
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(0, ::getgroups(0, nullptr))));
    if (groups.empty() || ::getgroups(static_cast<int>(groups.size()), groups.data()) < 0) return ::getegid();
    return groups.back();
}

mode_t RightsOf(const std::filesystem::path& file) {
    struct stat status {};
    return ::stat(file.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

/// A folder with these rights for as long as it lives; then it can be removed.
class FolderWithRights {
public:
    FolderWithRights(const std::filesystem::path& path, mode_t rights) : path_(path) {
        std::filesystem::create_directory(path);
        ::chmod(path.c_str(), 0777);
        WriteBytes(path / "a.trk", "old");
        ::chmod((path / "a.trk").c_str(), 0666);
        ::chmod(path.c_str(), rights);
    }
    ~FolderWithRights() { ::chmod(path_.c_str(), 0777); }
    FolderWithRights(const FolderWithRights&) = delete;
    FolderWithRights& operator=(const FolderWithRights&) = delete;

private:
    std::filesystem::path path_;
};

TEST(Rights, AFileThatMayNotBeReadIsRefused) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    WriteBytes(file, "secret");
    ::chmod(file.c_str(), 0);

    EXPECT_EQ(FaultAsOrdinaryUser([&] { ReadFile(file, 100); }), "Permission denied: " + file.string());
}

TEST(Rights, AFileInAFolderThatMayNotBeWrittenKeepsItsBytes) {
    const TemporaryFolder folder;
    const auto file = folder / "sub" / "a.trk";
    const FolderWithRights readOnly(folder / "sub", 0555);

    EXPECT_EQ(FaultAsOrdinaryUser([&] { ReplaceFile(file, "new"); }), "Permission denied: " + file.string());
    EXPECT_EQ(BytesOf(file), "old");
    EXPECT_EQ(FilesIn(folder / "sub"), 1U);
}

TEST(Rights, AReadOnlyFileIsNotReplacedThoughItsFolderWouldAllowIt) {
    const TemporaryFolder folder;
    const auto file = folder / "sub" / "a.trk";
    const FolderWithRights writable(folder / "sub", 0777);
    ::chmod(file.c_str(), 0444);

    EXPECT_EQ(FaultAsOrdinaryUser([&] { ReplaceFile(file, "new"); }), "Permission denied: " + file.string());
    EXPECT_EQ(BytesOf(file), "old");
    EXPECT_EQ(FilesIn(folder / "sub"), 1U);
}

TEST(Rights, AFolderThatMayNotBeEnteredIsAFaultLikeAnother) {
    const TemporaryFolder folder;
    const auto file = folder / "sub" / "a.trk";
    const FolderWithRights closed(folder / "sub", 0);

    EXPECT_EQ(FaultAsOrdinaryUser([&] { ReadFile(file, 100); }), "Permission denied: " + file.string());
    EXPECT_EQ(FaultAsOrdinaryUser([&] { ReplaceFile(file, "new"); }), "Permission denied: " + file.string());
}

TEST(Rights, AFileSystemThatTakesNoFilesIsAFaultForRootToo) {
    EXPECT_NE(FaultOf([] { ReplaceFile("/proc/pistaro.trk", "new"); }), "no fault");
    EXPECT_FALSE(std::filesystem::exists("/proc/pistaro.trk"));
}

TEST(Rights, AReplacedFileKeepsThem) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    WriteBytes(file, "old");
    for (const mode_t rights : {0600U, 0640U, 0664U, 0755U}) {
        ::chmod(file.c_str(), rights);

        ReplaceFile(file, "new");

        EXPECT_EQ(RightsOf(file), rights);
    }
}

TEST(Rights, ANewFileGetsThoseThatTheUserGivesNewFiles) {
    const TemporaryFolder folder;
    const mode_t before = ::umask(027);

    ReplaceFile(folder / "a.trk", "new");

    ::umask(before);
    EXPECT_EQ(RightsOf(folder / "a.trk"), 0640U);
}

TEST(Rights, AReplacedFileStaysItsOwnersAndItsGroups) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    WriteBytes(file, "old");
    // Only root can give a file to somebody else; all others can give it to a group of theirs.
    const bool isRoot = ::geteuid() == 0;
    const uid_t owner = isRoot ? Nobody : ::geteuid();
    const gid_t group = isRoot ? Nobody : LastOwnGroup();
    ASSERT_EQ(::chown(file.c_str(), owner, group), 0);

    ReplaceFile(file, "new");

    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, owner);
    EXPECT_EQ(status.st_gid, group);
}

TEST(FullDisk, LeavesTheOldFileAndNothingElse) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    WriteBytes(file, "old");
    const auto limitFileSize = [] {
        const rlimit limit{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    };

    const std::string fault = FaultInChild(limitFileSize, [&] { ReplaceFile(file, std::string(5000, 'x')); });

    EXPECT_EQ(fault, "Disk full: " + file.string());
    EXPECT_EQ(BytesOf(file), "old");
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(Links, StayLinksWhenTheirFileIsReplaced) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "sub");
    WriteBytes(folder / "sub" / "a.trk", "old");
    std::filesystem::create_symlink("sub/a.trk", folder / "relative");
    std::filesystem::create_symlink(folder / "relative", folder / "absolute");

    ReplaceFile(folder / "absolute", "new");

    EXPECT_TRUE(std::filesystem::is_symlink(folder / "absolute"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "relative"));
    EXPECT_EQ(BytesOf(folder / "sub" / "a.trk"), "new");
}

TEST(Links, LeadToAFileThatIsNotThereYet) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "sub");
    std::filesystem::create_symlink("sub/a.trk", folder / "link");

    ReplaceFile(folder / "link", "new");

    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_EQ(BytesOf(folder / "sub" / "a.trk"), "new");
}

TEST(Links, ThatLeadInACircleAreRefused) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("b", folder / "a");
    std::filesystem::create_symlink("a", folder / "b");

    EXPECT_TRUE(FaultOf([&] { ReplaceFile(folder / "a", "new"); }).starts_with("Path/File access error: "));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "a"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "b"));
}

TEST(Pipes, AreNotReplacedByFiles) {
    const TemporaryFolder folder;
    const auto pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0666), 0);

    EXPECT_EQ(FaultOf([&] { ReplaceFile(pipe, "new"); }),
              "Path/File access error: " + pipe.string() + ": is not a plain file");
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

TEST(Pipes, ThatNobodyWritesToAreEmpty) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);

    EXPECT_EQ(ReadFile(folder / "pipe", 100), "");
}

TEST(Pipes, AreReadUntilTheirWriterEnds) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        for (const char* const part : {"one ", "two"}) {
            ::usleep(20000);
            if (::write(ends[1], part, std::char_traits<char>::length(part)) < 0) ::_exit(1);
        }
        ::_exit(0);
    }
    ::close(ends[1]);

    const std::string bytes = ReadFile("/dev/fd/" + std::to_string(ends[0]), 100);

    EXPECT_EQ(bytes, "one two");
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
}

TEST(Devices, ThatNeverEndAreTooLarge) {
    EXPECT_EQ(FaultOf([] { ReadFile("/dev/zero", 1 << 20); }), "File too large: /dev/zero");
}

TEST(Kill, LeavesTheOldFileOrTheNewOneWhole) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    const std::array<std::string, 2> contents{std::string(60000, 'a'), std::string(40000, 'b')};
    WriteBytes(file, contents[0]);
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    std::array<int, 2> seen{};
    for (int round = 0; round < 200; ++round) {
        std::array<int, 2> ends{};
        ASSERT_EQ(::pipe(ends.data()), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            for (std::size_t turn = 1;; ++turn) {
                if (::write(ends[1], "!", 1) != 1) ::_exit(1);
                ReplaceFile(file, contents[turn % 2]);
            }
        }
        // The child says each time that it begins to replace: after the second time a first one is done, however slow
        // the disk is.
        for (auto begun = 1 + random() % 3; begun > 0; --begun) {
            char sign = 0;
            ASSERT_EQ(::read(ends[0], &sign, 1), 1);
        }
        ::usleep(static_cast<useconds_t>(random() % 5000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ::close(ends[0]);
        ::close(ends[1]);

        const std::string bytes = BytesOf(file);

        const bool first = bytes == contents[0];
        ASSERT_TRUE(first || bytes == contents[1]) << bytes.size() << " bytes, round " << round << ", seed " << seed;
        ++seen[first ? 0 : 1];
    }
    EXPECT_GT(seen[0], 0) << "every kill came before the first write, seed " << seed;
    EXPECT_GT(seen[1], 0) << "every kill came before the first write, seed " << seed;
}

class Places : public testing::Test {
protected:
    void SetUp() override {
        ::setenv("HOME", home.Path().c_str(), 1);
        ::unsetenv("XDG_CONFIG_HOME");
        ::unsetenv("XDG_DATA_HOME");
    }
    void TearDown() override { ::setenv("HOME", before.c_str(), 1); }

    TemporaryFolder home;
    std::string before = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
};

TEST_F(Places, TheSettingsStandInTheUsersConfiguration) {
    EXPECT_EQ(SettingsPath(), home.Path() / ".config" / "pistaro" / "corvel.ini");

    ::setenv("XDG_CONFIG_HOME", "/etc/elsewhere", 1);

    EXPECT_EQ(SettingsPath(), "/etc/elsewhere/pistaro/corvel.ini");
    ::unsetenv("XDG_CONFIG_HOME");
}

TEST_F(Places, TheRecentCircuitsStandBesideTheSettings) {
    EXPECT_EQ(RecentPath(), home.Path() / ".config" / "pistaro" / "recent");
}

TEST_F(Places, UnsavedWorkIsKeptAmongTheUsersData) {
    EXPECT_EQ(RecoveryFolder(), home.Path() / ".local" / "share" / "pistaro" / "recovery");

    ::setenv("XDG_DATA_HOME", "/srv/data", 1);

    EXPECT_EQ(RecoveryFolder(), "/srv/data/pistaro/recovery");
    ::unsetenv("XDG_DATA_HOME");
}

TEST_F(Places, WhoHasNoHomeHasNoneOfThem) {
    for (const char* const nowhere : {"", "relative/home"}) {
        ::setenv("HOME", nowhere, 1);
        ::setenv("XDG_CONFIG_HOME", nowhere, 1);

        EXPECT_EQ(SettingsPath(), "") << nowhere;
        EXPECT_EQ(DocumentsFolder(), "") << nowhere;
        EXPECT_EQ(RecoveryFolder(), "") << nowhere;
        EXPECT_EQ(RecentPath(), "") << nowhere;
    }
    ::unsetenv("XDG_CONFIG_HOME");
}

TEST_F(Places, TheDocumentsFolderIsTheDesktopsOwn) {
    EXPECT_EQ(DocumentsFolder(), home.Path() / "Documents");

    std::filesystem::create_directory(home / ".config");
    WriteBytes(home.Path() / ".config" / "user-dirs.dirs",
               "# made by the desktop\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
    EXPECT_EQ(DocumentsFolder(), home.Path() / "Dokumente");

    WriteBytes(home.Path() / ".config" / "user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"/srv/docs\"\n");
    EXPECT_EQ(DocumentsFolder(), "/srv/docs");
}

TEST_F(Places, WhatIsInstalledIsFoundFromTheProgramsFolder) {
    // The tests stand a folder below the program.
    EXPECT_EQ(InstalledFolder(), std::filesystem::path(Program()).parent_path() / "share" / "pistaro");
}

TEST_F(Places, TheCheckoutIsThatInWhoseBuildFolderTheProgramStands) {
    const char* const answer = std::getenv("TELL_CHECKOUT");
    if (answer != nullptr) return WriteBytes(answer, CheckoutFolder().string());
    // Asks this very test in a program that stands elsewhere.
    const auto told = [&](const std::filesystem::path& program) {
        std::filesystem::create_directories(program.parent_path());
        std::filesystem::copy_file("/proc/self/exe", program);
        const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
        const std::string command = "TELL_CHECKOUT='" + (home / "answer").string() + "' '" + program.string() +
                                    "' --gtest_filter=Places." + test + " >/dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0);
        return BytesOf(home / "answer");
    };
    std::filesystem::create_directory(home / "checkout");
    WriteBytes(home / "checkout" / "CMakePresets.json", "{}");

    EXPECT_EQ(told(home / "checkout" / "build" / "dev" / "program"), (home / "checkout").string());
    EXPECT_EQ(told(home / "usr" / "bin" / "program"), "") << "the home is no checkout";
}

TEST(Programs, AreStartedWithTheirArgument) {
    const TemporaryFolder folder;
    const auto file = folder / "made by touch";

    StartProgram("touch", file.string());

    for (int i = 0; i < 1000 && !std::filesystem::exists(file); ++i)
        ::usleep(10000);
    EXPECT_TRUE(std::filesystem::exists(file));
}

TEST(Programs, ThatAreMissingAreAFault) {
    EXPECT_EQ(FaultOf([] { StartProgram("/no/such/program", ""); }),
              "Program not started: /no/such/program: No such file or directory");
}

TEST(Programs, WebPagesAreShownByTheDesktopsChoice) {
    EXPECT_EQ(FindHtmlViewer(), "xdg-open");
    EXPECT_EQ(ShortPath("/tmp/guide.html"), "/tmp/guide.html");
}

} // namespace
TEST(TerminationRequests, BecomeReadableInPlaceOfEndingTheProgram) {
    const int requests = TerminationRequests();
    ASSERT_GE(requests, 0);
    pollfd readable{requests, POLLIN, 0};
    EXPECT_EQ(::poll(&readable, 1, 0), 0);

    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::raise(signal);
        EXPECT_EQ(::poll(&readable, 1, 0), 1);
        TakeTerminationRequest();
        EXPECT_EQ(::poll(&readable, 1, 0), 0);
    }
}

} // namespace pistaro

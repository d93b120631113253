// The built program with calls to the system that fail: it ends with status 1 and one line that names the file and the
// reason, or it has not needed the call. What stands on disk is the old or the new, whole.
#include "faults/failing_calls.h"
#include "faults/tree.h"
#include "support/circuit_text.h"
#include "support/run_program.h"
#include "support/settings_bytes.h"

#include <gmock/gmock.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <sys/stat.h>

namespace pistaro {

namespace {

using testing::AllOf;
using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAreArray;

/// A variable of the environment for programs that are started while this lives.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) { ::setenv(name, value.c_str(), 1); }
    ~Variable() { ::unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
};

struct Failure {
    int Error;
    const char* Told;
};

constexpr std::array Failures{Failure{ENOSPC, "Disk full: "}, Failure{EIO, ": Input/output error"},
                              Failure{EDQUOT, "Disk full: "}, Failure{EACCES, "Permission denied: "}};

/// ./soak tries every call with every error; elsewhere each call gets one, and of many calls every 40th.
bool IsThorough() { return std::getenv("PISTARO_SOAK") != nullptr; }

class FailingProgram : public testing::Test {
protected:
    /// What stands in the folder at first.
    void Lay() const {
        for (const auto& entry : std::filesystem::directory_iterator(folder_.Path()))
            std::filesystem::remove_all(entry);
        WriteBytes(folder_ / "oval.trk", CircuitText("C160 C159"));
        WriteBytes(folder_ / "corvel.ini", WholeSettings());
    }

    /// `written` are the files that the verb makes or replaces.
    void TryEachCall(const std::vector<std::string>& arguments, const std::string& script,
                     const std::vector<std::string>& written) {
        Lay();
        before_ = TreeBelow(folder_.Path());
        ASSERT_EQ(folder_.Run(arguments, script).ExitStatus, 0);
        after_ = TreeBelow(folder_.Path());
        ASSERT_THAT(Others(before_, after_), UnorderedElementsAreArray(written));

        int failed = 0;
        for (int call = 1;; call += !IsThorough() && call > 12 ? 40 : 1) {
            bool any = false;
            for (std::size_t at = 0; at < Failures.size(); ++at) {
                if (!IsThorough() && at != static_cast<std::size_t>(call) % Failures.size()) continue;
                any = FailsWell(arguments, script, call, Failures[at]) || any;
            }
            if (!any) break;
            ++failed;
        }
        EXPECT_GT(failed, 5);
    }

    ProgramFolder folder_;

private:
    /// False when the program makes fewer calls.
    bool FailsWell(const std::vector<std::string>& arguments, const std::string& script, int call,
                   const Failure& failure) {
        Lay();
        const std::filesystem::path report = folder_.Home() / "report";
        std::filesystem::remove(report);
        const Finished finished = [&] {
            const Variable preload("LD_PRELOAD", FAILING_CALLS);
            const Variable sanitizer("ASAN_OPTIONS", "verify_asan_link_order=0");
            const Variable folder("FAILING_FOLDER", folder_.Path().string());
            const Variable number("FAILING_CALL", std::to_string(call));
            const Variable error("FAILING_ERROR", std::to_string(failure.Error));
            const Variable reported("FAILING_REPORT", report.string());
            return folder_.Run(arguments, script);
        }();
        const std::string failed = BytesOf(report);
        SCOPED_TRACE("call " + std::to_string(call) + ", error " + std::to_string(failure.Error) + ": " + failed);

        const Tree left = TreeBelow(folder_.Path());
        ExpectOldOrNew(left, before_, after_);
        if (finished.ExitStatus == 0) {
            EXPECT_THAT(Others(left, after_), IsEmpty());
            EXPECT_EQ(finished.Errors, "");
        } else {
            EXPECT_EQ(finished.ExitStatus, 1);
            EXPECT_THAT(finished.Errors,
                        AllOf(StartsWith("pistaro: "), HasSubstr(failure.Told), EndsWith("\n"),
                              AnyOf(HasSubstr("oval.trk"), HasSubstr("corvel.ini"), HasSubstr("shoppingList.txt"),
                                    HasSubstr("track."), HasSubstr(".gif"), HasSubstr("guide.html"))));
            EXPECT_EQ(std::ranges::count(finished.Errors, '\n'), 1) << finished.Errors;
        }
        return !failed.empty();
    }

    Tree before_, after_;
};

/// A script from the standard input, with settings that it may write.
const std::vector<std::string> Script{"script", "-", "--settings", "corvel.ini"};

} // namespace

TEST_F(FailingProgram, OnASave) {
    TryEachCall(Script, "load oval.trk\nadd C151L\nsave oval.trk\n", {"oval.trk", "corvel.ini"});
}

TEST_F(FailingProgram, OnTheColourDialogsSave) { TryEachCall(Script, "colours rail=222222 save\n", {"corvel.ini"}); }

TEST_F(FailingProgram, OnTheOwnedTrackDialogsSave) { TryEachCall(Script, "stock C160=17 save\n", {"corvel.ini"}); }

TEST_F(FailingProgram, OnTheDrawAreaDialogsSave) { TryEachCall(Script, "area step=7 save\n", {"corvel.ini"}); }

TEST_F(FailingProgram, OnAPicture) {
    TryEachCall({"picture", "oval.trk", "--out", "track.png", "--size", "50"}, "", {"track.png"});
}

TEST_F(FailingProgram, OnAnExport) {
    for (const char* const name : {"track.svg", "track.pdf", "track.dxf", "track.csv", "track.json", "track.png"})
        TryEachCall({"export", "oval.trk", "--out", name}, "", {name});
}

TEST_F(FailingProgram, OnABuildPlan) {
    for (const char* const name : {"track.html", "track.pdf"})
        TryEachCall({"plan", "oval.trk", "--out", name}, "", {name});
}

TEST_F(FailingProgram, OnTheShoppingList) { TryEachCall({"shop", "oval.trk"}, "", {"shoppingList.txt"}); }

TEST_F(FailingProgram, OnTheGuide) {
    Lay();
    const Tree before = TreeBelow(folder_.Path());
    ASSERT_EQ(folder_.Run({"guide", "oval.trk"}).ExitStatus, 0);
    const std::vector<std::string> written = Others(before, TreeBelow(folder_.Path()));
    EXPECT_EQ(written.size(), 41U) << "the layout, each of 39 pieces, and the page";

    TryEachCall({"guide", "oval.trk"}, "", written);
}

} // namespace pistaro

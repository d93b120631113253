// One script for each folder of cases/: script.txt is run beside the folder's other files, and must print expected.txt,
// which is kept in the reading form of support/pretty_json.h; with an expected_error.txt it must be refused in those
// words.
#include "support/places.h"
#include "support/pretty_json.h"
#include "support/run_program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pistaro {

namespace {

std::filesystem::path CasesFolder() { return SourceFolder() / "tests" / "cli" / "cases"; }

std::vector<std::string> CaseNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(CasesFolder()))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

class ScriptCase : public testing::TestWithParam<std::string> {};

std::string TestName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::ranges::replace(name, '-', '_');
    return name;
}

/// Compares with a file of the case. What differs is left in the build folder under the expected file's name.
void ExpectFile(const std::string& actual, const std::string& caseName, const std::string& file,
                const std::string& expected) {
    if (actual == expected) return;
    const auto folder = std::filesystem::path(Program()).parent_path() / "tests" / "cli" / "cases" / caseName;
    std::filesystem::create_directories(folder);
    WriteBytes(folder / file, actual);
    EXPECT_EQ(actual, expected) << "what came instead: " << folder / file;
}

} // namespace

TEST_P(ScriptCase, PrintsWhatIsExpected) {
    const auto folder = CasesFolder() / GetParam();
    const ProgramFolder program;
    std::filesystem::copy(folder, program.Path());
    const bool refused = std::filesystem::exists(folder / "expected_error.txt");

    const Finished finished = program.Run({"script", "script.txt"});

    ExpectFile(PrettyJson(finished.Output), GetParam(), "expected.txt", BytesOf(folder / "expected.txt"));
    ExpectFile(finished.Errors, GetParam(), "expected_error.txt",
               refused ? BytesOf(folder / "expected_error.txt") : "");
    EXPECT_EQ(finished.ExitStatus, refused ? 1 : 0);
    EXPECT_TRUE(std::filesystem::is_empty(program.Home()));
}

INSTANTIATE_TEST_SUITE_P(Cases, ScriptCase, testing::ValuesIn(CaseNames()), TestName);

} // namespace pistaro

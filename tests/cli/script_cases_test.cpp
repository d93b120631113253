// One script for each folder of cases/: script.txt is run beside the folder's other files, and must print expected.txt;
// with an expected_error.txt it must be refused in those words.
#include "support/run_program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pistaro {

namespace {

std::filesystem::path CasesFolder() { return std::filesystem::path(SOURCE_FOLDER) / "tests" / "cli" / "cases"; }

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

} // namespace

TEST_P(ScriptCase, PrintsWhatIsExpected) {
    const auto folder = CasesFolder() / GetParam();
    const ProgramFolder program;
    std::filesystem::copy(folder, program.Path());
    const std::string expectedError = BytesOf(folder / "expected_error.txt");

    const Finished finished = program.Run({"script", "script.txt"});

    EXPECT_EQ(finished.Output, BytesOf(folder / "expected.txt"));
    EXPECT_EQ(finished.Errors, expectedError);
    EXPECT_EQ(finished.ExitStatus, expectedError.empty() ? 0 : 1);
    EXPECT_TRUE(std::filesystem::is_empty(program.Home()));
}

INSTANTIATE_TEST_SUITE_P(Cases, ScriptCase, testing::ValuesIn(CaseNames()), TestName);

} // namespace pistaro

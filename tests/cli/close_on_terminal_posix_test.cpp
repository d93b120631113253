// The close verb before somebody's eyes: prices that are not known are told there, and nowhere else.
#include "support/circuit_text.h"
#include "support/running_program_posix.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::HasSubstr;

const std::vector<std::string> Close{"close", "open.trk", "--limit", "1"};

class CloseOnTerminal : public testing::Test {
protected:
    CloseOnTerminal() {
        WriteBytes(folder_ / "open.trk", CircuitText("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R"));
    }

    TemporaryFolder folder_;
};

TEST_F(CloseOnTerminal, TellsWhichPiecesHaveNoPrice) {
    RunningProgram program(folder_.Path(), RunningProgram::Errors::OnTerminal, Close);

    EXPECT_THAT(program.ReadTerminal(), HasSubstr("pistaro: without a price, and counted as 0: C151\r\n"));
    EXPECT_EQ(program.Wait(), 0);
}

TEST_F(CloseOnTerminal, TellsNobodyElse) {
    EXPECT_EQ(RunningProgram(folder_.Path(), RunningProgram::Errors::InFile, Close).Wait(), 0);

    EXPECT_EQ(BytesOf(folder_ / "stderr"), "");
}

} // namespace
} // namespace pistaro

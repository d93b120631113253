// The verb check and the script's check, from the shell to the last byte.
#include "storage/circuit_file.h"
#include "support/chain.h"
#include "support/places.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class CheckVerb : public testing::Test {
protected:
    std::string Circuit(const std::string& codes) const {
        WriteBytes(folder_ / "circuit.trk", CircuitBytes(ProjectOf(codes).Design));
        return (folder_ / "circuit.trk").string();
    }

    ProgramFolder folder_;
};

const std::string Oval = "C277 C367 C8006 C151R C151R C151R C151R C160 C8006 C151R C151R C151R C151R";

TEST_F(CheckVerb, OfACleanCircuitEndsWithStatus0) {
    const Finished run = folder_.Run({"check", Circuit(Oval), "--json"});

    EXPECT_EQ(run.ExitStatus, 0);
    EXPECT_EQ(run.Output, "{\"findings\":[]}\n");
    EXPECT_THAT(run.Errors, IsEmpty());
}

TEST_F(CheckVerb, PrintsFindingsAsOneLineAndEndsWithStatus1OnAnError) {
    const Finished run = folder_.Run({"check", Circuit("N10102 N10102 N10102"), "--json"});

    EXPECT_EQ(run.ExitStatus, 1);
    EXPECT_EQ(run.Output, R"({"findings":[{"rule":"open-track","severity":"error","track":1,"pieces":[0,2],)"
                          R"("text":"The track does not close: its ends are 120.0 cm and 0.0° apart."}]})"
                          "\n");
    EXPECT_THAT(run.Errors, IsEmpty());
}

TEST_F(CheckVerb, PrintsATableForAPerson) {
    const Finished run = folder_.Run({"check", Circuit("C8006")});

    EXPECT_EQ(run.ExitStatus, 0);
    EXPECT_EQ(run.Output,
              "warning  track 1  odd-change-overs   1 change-over: each lane leads into the other, one way of "
              "71.8 cm in two laps.\n"
              "0 errors, 1 warning, 0 pieces of advice\n");
}

TEST_F(CheckVerb, ListsItsRules) {
    const Finished table = folder_.Run({"check", "--rules"});
    const Finished json = folder_.Run({"check", "--rules", "--json"});

    EXPECT_EQ(table.ExitStatus, 0);
    EXPECT_THAT(table.Output,
                HasSubstr("error    open-track         A track of three pieces or more that does not close\n"));
    EXPECT_THAT(json.Output, StartsWith(R"({"rules":[{"rule":"unknown-code","severity":"error","text":"A code)"));
    EXPECT_THAT(json.Output, EndsWith("}]}\n"));
}

TEST_F(CheckVerb, ReadsTheCircuitBesideItsRulesSoThatASlipInItsNameIsTold) {
    const Finished rules = folder_.Run({"check", "--rules"});
    const Finished both = folder_.Run({"check", Circuit("C160 C160 C160"), "--rules"});
    const Finished missing = folder_.Run({"check", "--rules", "missing.trk"});

    EXPECT_EQ(both.ExitStatus, 0);
    EXPECT_EQ(both.Output, rules.Output);
    EXPECT_EQ(missing.ExitStatus, 1);
    EXPECT_THAT(missing.Output, IsEmpty());
    EXPECT_THAT(missing.Errors, HasSubstr("missing.trk"));
    EXPECT_EQ(folder_.Run({"check", "--rules", "--settings", "missing.ini"}).ExitStatus, 1);
}

TEST_F(CheckVerb, WantsACircuit) {
    EXPECT_EQ(folder_.Run({"check"}).ExitStatus, 2);
    const Finished missing = folder_.Run({"check", "missing.trk"});
    EXPECT_EQ(missing.ExitStatus, 1);
    EXPECT_THAT(missing.Errors, HasSubstr("missing.trk"));
}

TEST_F(CheckVerb, IsAScriptCommandToo) {
    WriteBytes(folder_ / "script.txt", "add C160\ncheck\nadd C160 C160\ncheck\n");

    const Finished run = folder_.Run({"script", "script.txt"});

    EXPECT_EQ(run.ExitStatus, 0) << "findings are no refusal";
    EXPECT_THAT(run.Output, StartsWith("{\"findings\":[]}\n{\"findings\":[{\"rule\":\"open-track\","));
}

TEST_F(CheckVerb, FindsNoErrorInTheSamples) {
    for (const char* const sample : {"banked-speedway", "club-chicanes", "figure-of-eight", "grand-prix", "mixed",
                                     "ninco", "oval", "three-tracks"}) {
        const Finished run =
            folder_.Run({"check", (SourceFolder() / "samples" / (std::string(sample) + ".trk")).string()});

        EXPECT_EQ(run.ExitStatus, 0) << sample << "\n" << run.Output;
    }
}

} // namespace
} // namespace pistaro

// Memory may end anywhere: the program then says so in a line, ends with 1, and leaves its files as they were or as
// they were to become. The address sanitizer brings an allocator of its own, which no other one can stand before.
#ifndef __SANITIZE_ADDRESS__

#include "support/circuit_text.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <sys/wait.h>

namespace pistaro {
namespace {

/// How many allocations are tried: all of the first, then ever fewer.
constexpr int Tried = 150;

struct Ended {
    int Status;
    std::string Errors;
    long Allocations;
};

class EndOfMemory : public testing::TestWithParam<const char*> {
protected:
    EndOfMemory() {
        WriteBytes(folder_ / "oval.trk", CircuitText("C160 C151L C8007"));
        WriteBytes(folder_ / "script.txt", "add C160\nstate\nsave saved.trk\nlayout\n");
    }

    /// Runs the program where that allocation fails; none at 0.
    Ended Run(long allocation) const {
        const std::string in = "cd '" + folder_.Path().string() + "' && ";
        const std::string command = in + "HOME=. LD_PRELOAD='" FAILING_MEMORY "' ALLOCATIONS_REPORT=report " +
                                    "FAILING_ALLOCATION=" + std::to_string(allocation) + " '" + Program() + "' " +
                                    GetParam() + " >output 2>errors </dev/null";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, BytesOf(folder_ / "errors"),
                std::atol(BytesOf(folder_ / "report").c_str())};
    }

    TemporaryFolder folder_;
};

TEST_P(EndOfMemory, IsToldInALineWithStatus1) {
    const Ended whole = Run(0);
    ASSERT_EQ(whole.Status, 0) << whole.Errors;
    ASSERT_GT(whole.Allocations, 1000);
    int told = 0;
    for (long allocation = 1; allocation <= whole.Allocations; allocation += 1 + allocation * 10 / Tried) {
        for (const char* const name : {"saved.trk", "x.png", "x.svg", "x.pdf", "x.dxf", "x.csv", "x.html"})
            std::filesystem::remove(folder_ / name);
        const Ended ended = Run(allocation);
        if (ended.Status == 0) continue; // the library did without
        ++told;
        ASSERT_EQ(ended.Status, 1) << "allocation " << allocation << " of " << whole.Allocations << ": "
                                   << ended.Errors;
        ASSERT_TRUE(ended.Errors.starts_with("pistaro: ") && ended.Errors.find('\n') == ended.Errors.size() - 1)
            << "allocation " << allocation << ": " << ended.Errors;
        const std::string saved = BytesOf(folder_ / "saved.trk");
        ASSERT_TRUE(saved.empty() || saved == CircuitText("C160"));
    }
    EXPECT_GT(told, 20);
}

INSTANTIATE_TEST_SUITE_P(Verbs, EndOfMemory,
                         testing::Values("layout oval.trk", "stats oval.trk", "script script.txt", "catalogue --json",
                                         "settings", "recover", "export oval.trk --out x.csv",
                                         "export oval.trk --out x.dxf", "export oval.trk --out x.svg",
                                         "export oval.trk --out x.pdf", "export oval.trk --out x.png",
                                         "plan oval.trk --out x.html", "picture oval.trk --out x.png"));

} // namespace
} // namespace pistaro

#endif

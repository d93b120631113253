// Any text as a script: each line is done or refused. Lines that load and save are left out, because they would do so
// anywhere on this disk; so are those that work for seconds.
#include "cli/script.h"
#include "cli/script_words.h"
#include "fuzzing/require.h"
#include "storage/circuit_file.h"
#include "storage/settings_file.h"

#include <algorithm>
#include <cstdint>
#include <sstream>

namespace {

using namespace pistaro;

const Catalogue& Pieces() {
    static const Catalogue catalogue = InitCatalogue();
    return catalogue;
}

/// Whether a line may be run here. What cannot be parted into words is refused by the script, too.
bool IsHarmless(const std::string& line) {
    try {
        const Words words = ScriptWords(line);
        constexpr std::array outside{"load", "save", "close"};
        return words.empty() || (words.size() < 50 && std::ranges::find(outside, words[0]) == outside.end());
    } catch (const Fault&) {
        return true;
    }
}

/// The script line by line, so that lines after a refused one are run, too.
void RunEachLine(Session& session, ScriptPrompts& prompts, const std::string& script) {
    std::istringstream lines(script);
    ScriptLines parted(lines, "fuzzed");
    int left = 200;
    for (std::string line; left > 0 && parted.Next(line); --left) {
        if (!IsHarmless(line)) continue;
        std::istringstream one(line);
        std::ostringstream output;
        try {
            RunScript(session, prompts, one, "fuzzed", output, {});
        } catch (const Fault&) {
            continue;
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ScriptPrompts prompts;
    Session session(Pieces(), prompts, StartUp(InitialSettings(Pieces())), "/dev/null/corvel.ini");
    RunEachLine(session, prompts, {reinterpret_cast<const char*>(data), size});
    const std::string bytes = CircuitBytes(session.Project.Design);
    Require(CircuitBytes(ParseCircuit(bytes, "written.trk")) == bytes, "the design can be saved and loaded", bytes);
    return 0;
}

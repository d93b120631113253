// Any text as a file of boxed sets: it is refused, or gives sets whose own text gives the same ones again.
#include "storage/sets_file.h"
#include "fuzzing/require.h"

#include "platform/fault.h"

#include <cstdint>

using namespace pistaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Catalogue catalogue = InitCatalogue();
    BoxedSets sets;
    try {
        sets = ParseSets(catalogue, {reinterpret_cast<const char*>(data), size}, "fuzzed.toml");
    } catch (const Fault&) {
        return 0;
    }
    const std::string written = SetsText(catalogue, sets);
    try {
        Require(ParseSets(catalogue, written, "written.toml") == sets, "written sets read back", written);
    } catch (const Fault& fault) {
        Require(false, "written sets can be read", fault.what() + ("\n" + written));
    }
    return 0;
}

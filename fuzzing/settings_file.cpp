// Any bytes as a settings file: they are refused, or give the same settings each time, also when read over others.
#include "storage/settings_file.h"
#include "fuzzing/require.h"

#include "platform/fault.h"

#include <cstdint>

using namespace pistaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Catalogue catalogue = InitCatalogue();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        Settings once = ParseSettings(catalogue, bytes, "fuzzed.ini");
        once.Messages.clear();
        Settings twice = ParseSettings(catalogue, bytes, "fuzzed.ini", once);
        twice.Messages.clear();
        Require(once == twice, "a file read over its own settings changes nothing");
    } catch (const Fault&) {
        return 0;
    }
    return 0;
}

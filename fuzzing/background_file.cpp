// Any bytes as the file of a background: they are refused, or give one whose own file gives the same one again.
#include "storage/background_file.h"
#include "fuzzing/require.h"

#include "platform/fault.h"

#include <cstdint>

using namespace pistaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string written;
    try {
        written = BackgroundBytes(ParseBackground({reinterpret_cast<const char*>(data), size}, "fuzzed.background"));
    } catch (const Fault&) {
        return 0;
    }
    Require(BackgroundBytes(ParseBackground(written, "written.background")) == written, "it reads back", written);
    return 0;
}

// Any bytes as a circuit file: they are refused, or give a design whose own file gives the same one again.
#include "storage/circuit_file.h"
#include "fuzzing/require.h"

#include "platform/fault.h"

#include <cstdint>

using namespace pistaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string written;
    try {
        written = CircuitBytes(ParseCircuit({reinterpret_cast<const char*>(data), size}, "fuzzed.trk"));
    } catch (const Fault&) {
        return 0;
    }
    try {
        Require(CircuitBytes(ParseCircuit(written, "written.trk")) == written, "a written design reads back", written);
    } catch (const Fault& fault) {
        Require(false, "a written design can be read", fault.what() + ("\n" + written));
    }
    return 0;
}

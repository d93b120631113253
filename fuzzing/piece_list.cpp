// Any text as a list of pieces: it is refused, or names pieces whose own list names the same ones again.
#include "editor/piece_list.h"
#include "fuzzing/require.h"

#include "platform/fault.h"

#include <cstdint>

using namespace pistaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Catalogue catalogue = InitCatalogue();
    std::vector<std::string> codes;
    try {
        codes = ParsePieceList(catalogue, {reinterpret_cast<const char*>(data), size});
    } catch (const Fault&) {
        return 0;
    }
    const std::string written = PieceListText(codes);
    try {
        Require(ParsePieceList(catalogue, written) == codes, "a written list reads back", written);
    } catch (const Fault& fault) {
        Require(false, "a written list can be read", fault.what() + ("\n" + written));
    }
    return 0;
}

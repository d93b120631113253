// Any text as a list of pieces: what of it is understood names pieces whose own list names the same ones again.
#include "editor/piece_list.h"
#include "editor/read_piece_list.h"
#include "fuzzing/require.h"

#include <cstdint>

using namespace pistaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Catalogue catalogue = InitCatalogue();
    const PieceListReading list = ReadPieceList(catalogue, {reinterpret_cast<const char*>(data), size});
    const std::string written = PieceListText(list.Codes);
    const PieceListReading again = ReadPieceList(catalogue, written);
    Require(again.Codes == list.Codes, "a written list reads back", written);
    Require(again.NotUnderstood.empty() && !again.TooMany, "a written list is understood", written);
    return 0;
}

#include "editor/piece_list.h"

#include "editor/read_piece_list.h"
#include "platform/fault.h"

#include <algorithm>

namespace pistaro {

namespace {

Fault TooManyPieces() {
    return SubscriptOutOfRange("a track holds at most " + std::to_string(MaxElements) + " pieces");
}

} // namespace

std::string PieceListText(const std::vector<std::string>& codes) {
    std::string text;
    for (auto at = codes.begin(); at != codes.end();) {
        const auto next = std::find_if(at, codes.end(), [&](const std::string& code) { return code != *at; });
        if (!text.empty()) text += ", ";
        text += *at;
        if (next - at > 1) text += " x" + std::to_string(next - at);
        at = next;
    }
    return text;
}

std::map<int, int> ParseProductList(const Catalogue& catalogue, std::string_view text) {
    const PieceListReading reading = ReadPieceList(catalogue, text, Hands::Optional);
    if (!reading.NotUnderstood.empty())
        throw TypeMismatch(reading.StrangeText() +
                           (reading.NotUnderstood.size() == 1 ? " is no piece" : " are no pieces"));
    if (reading.Codes.empty()) throw TypeMismatch("there is no list of pieces such as \"C160 x3, C151L\"");
    if (reading.TooMany) throw TooManyPieces();
    std::map<int, int> counts;
    for (const std::string& code : reading.Codes)
        ++counts[catalogue.FindHeadRow(ProductCode(code))];
    return counts;
}

void AppendPieces(Design& design, EditState& edit, const std::vector<std::string>& codes) {
    Track& track = *EditedTrack(design.Circuit, edit);
    if (track.ElementCodes.size() + codes.size() > static_cast<std::size_t>(MaxElements)) throw TooManyPieces();
    track.ElementCodes.insert(track.ElementCodes.end(), codes.begin(), codes.end());
    edit.Select(track.ElementLastIndex());
    edit.DataChanged = true;
}

} // namespace pistaro

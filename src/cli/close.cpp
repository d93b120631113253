#include "cli/close.h"

#include "cli/foreground.h"
#include "cli/start.h"
#include "exchange/json.h"

#include <set>
#include <string_view>

namespace pistaro {

namespace {

Json EditJson(const TrackEdit& edit) { return {{"at", edit.At}, {"remove", edit.Remove}, {"insert", edit.Insert}}; }

/// What is laid behind the track is told by its pieces; what changes the track itself by those of the whole, and the
/// edit.
Json SuggestionJson(const Suggestion& suggestion, const Track& track) {
    const bool isBehind = suggestion.Edit.At > track.ElementLastIndex();
    Track changed = track;
    Apply(suggestion.Edit, changed);
    Json json{{"pieces", isBehind ? suggestion.Edit.Insert : changed.ElementCodes},
              {"count", suggestion.Count()},
              {"price", Number(suggestion.Price)},
              {"gap", {{"distance", Number(suggestion.Gap.Distance)}, {"angle", Number(suggestion.Gap.Angle)}}},
              {"owned", suggestion.IsOwned},
              {"overlaps", suggestion.Overlaps},
              {"outside", suggestion.IsOutside},
              {"shortest", suggestion.IsShortest}};
    if (!isBehind) json["edits"] = Json::array({EditJson(suggestion.Edit)});
    return json;
}

/// The products of the suggested pieces that have no price.
std::set<std::string_view> UnpricedOf(const VerbContext& context, const Stock& stock,
                                      const std::vector<Suggestion>& suggestions) {
    std::set<std::string_view> products;
    for (const Suggestion& suggestion : suggestions) {
        for (const std::string& code : suggestion.Edit.Insert) {
            const CatalogueEntry& piece = *context.Catalogue.Find(code);
            if (stock[piece.StockIndex].Price == 0) products.insert(ProductCode(piece.Code));
        }
    }
    return products;
}

/// Whoever reads the lines himself shall not take a sum for a price that is not known.
void TellUnpriced(const VerbContext& context, const std::set<std::string_view>& products) {
    if (products.empty() || !StandardErrorIsTerminal()) return;
    context.Errors << "pistaro: without a price, and counted as 0:";
    for (const std::string_view product : products)
        context.Errors << ' ' << product;
    context.Errors << '\n';
}

} // namespace

void CloseVerb(const VerbContext& context, const std::filesystem::path& circuit, int track,
               const ClosingOptions& options) {
    const Project project = StartWithCircuit(context, circuit);
    const ClosingTables tables(context.Catalogue);
    const Interruptions interruptions;
    const Closings closings = InForeground(interruptions, context.Errors, "close", [&](const JobWatch& watch) {
        return CloseTrack(tables, context.Catalogue, project.Design, project.Stock, track, options, watch);
    });
    for (const Suggestion& suggestion : closings.Suggestions)
        context.Output << Line(SuggestionJson(suggestion,
                                              project.Design.Circuit.Tracks[static_cast<std::size_t>(track)]))
                       << '\n';
    TellUnpriced(context, UnpricedOf(context, project.Stock, closings.Suggestions));
    if (closings.Suggestions.empty()) {
        context.Errors << "pistaro: track " << track + 1 << ": " << closings.WhyNone << '\n';
    }
}

} // namespace pistaro

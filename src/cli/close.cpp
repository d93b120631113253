#include "cli/close.h"

#include "cli/foreground.h"
#include "cli/json.h"
#include "cli/start.h"

namespace pistaro {

namespace {

Json SuggestionJson(const Suggestion& suggestion) {
    return {{"pieces", suggestion.Edit.Insert},
            {"count", suggestion.Count()},
            {"price", Number(suggestion.Price)},
            {"gap", {{"distance", Number(suggestion.Gap.Distance)}, {"angle", Number(suggestion.Gap.Angle)}}},
            {"owned", suggestion.IsOwned},
            {"overlaps", suggestion.Overlaps},
            {"outside", suggestion.IsOutside},
            {"shortest", suggestion.IsShortest}};
}

} // namespace

void CloseVerb(const VerbContext& context, const std::filesystem::path& circuit, int track,
               const ClosingOptions& options) {
    const Project project = StartWithCircuit(context, circuit);
    const ClosingTables tables(context.Pieces);
    const Interruptions interruptions;
    const Closings closings = InForeground(interruptions, context.Errors, "close", [&](const JobWatch& watch) {
        return CloseTrack(tables, context.Pieces, project.Design, project.Stock, track, options, watch);
    });
    for (const Suggestion& suggestion : closings.Suggestions)
        context.Output << Line(SuggestionJson(suggestion)) << '\n';
    if (closings.Suggestions.empty()) {
        context.Errors << "pistaro: track " << track + 1 << ": " << closings.WhyNone << '\n';
    }
}

} // namespace pistaro

#include "ui/suggester.h"

#include <QMetaObject>

namespace pistaro {

namespace {

const char* const Owner = "suggested"; ///< of the overlay, below that of the suggestions in the strip
constexpr Colour FaintGhost = Rgb(150, 190, 165);

/// More pieces than would soon be laid.
constexpr int MostPieces = 6;

} // namespace

Suggester::Suggester(Session& session, CircuitView& view) : session_(session), view_(view) {
    jobs_.RunBeside(
        [this](std::function<void()> call) { QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection); });
}

void Suggester::Refresh(const Changes& changes) {
    const bool isConcerned = changes.Circuit || changes.Room || changes.Stock || changes.EditState;
    if (shown_ == session_.Looks.Suggestions && !(shown_ && isConcerned)) return;
    shown_ = session_.Looks.Suggestions;
    jobs_.Cancel();
    view_.ClearOverlay(Owner);
    if (!shown_ || !WhyNotClose(session_).empty()) return;
    const auto work = [this, design = session_.Project.Design, stock = session_.Project.Stock,
                       track = session_.Project.EditState.CurrentTrack](const JobWatch& watch) -> JobEnd {
        ClosingOptions options;
        options.MostPieces = MostPieces;
        options.Limit = 1;
        const Closings closings =
            CloseTrack(session_.Closings, session_.Catalogue, design, stock, track, options, watch);
        if (closings.Suggestions.empty() || !closings.Suggestions.front().IsFree()) return [] {};
        return [this, best = closings.Suggestions.front()] { Show(best); };
    };
    jobs_.Start({"Close the Loop", "A search for pieces that close the track is running.", work},
                [](const JobEnd& end) { end(); }, {});
}

void Suggester::Show(const Suggestion& suggestion) {
    const GhostPlace place = PlaceOf(session_, suggestion);
    view_.SetOverlay(Owner, {OverlayPieces{suggestion.Edit.Insert, place.Start, place.CodeBefore, FaintGhost}});
}

} // namespace pistaro

#include "commands/money_commands.h"

#include "layout/track_gap.h"
#include "money/purchase.h"
#include "money/purchase_text.h"
#include "storage/sets_file.h"

#include <algorithm>

namespace pistaro {

void BalanceCommand(Session& session) {
    const Design& design = session.Project.Design;
    const int track = session.Project.EditState.CurrentTrack;
    const Balance balance = BalanceLanes(session.Catalogue, design, track);
    if (!balance.Steps.empty()) return session.Windows->ShowBalance(balance);
    constexpr double pressedTogether = 2; // cm, which a hand can close
    const TrackGap gap = GapOf(session.Catalogue, design.Circuit.Tracks[static_cast<std::size_t>(track)]);
    const std::string open =
        gap.Distance > pressedTogether && !balance.IsBalanced ? " The track does not close yet; close it first." : "";
    session.Prompts.Tell({Icon::Information, BalanceText(balance, session.Project.Preferences.Units) + open});
}

void BalanceTrack(Session& session, const Balance& balance) {
    session.NameStep("Balance Lanes");
    Track& track = *EditedTrack(session.Project.Design.Circuit, session.Project.EditState);
    track = Balanced(track, balance.Steps);
    session.Project.EditState.DataChanged = true;
}

void PurchaseCommand(Session& session) {
    const Catalogue& catalogue = session.Catalogue;
    const BoxedSets sets = SetsBeside(catalogue, session.SettingsPath).value_or(BoxedSets());
    const std::vector<int> missing = MissingPieces(catalogue, session.Project.Stock, session.Project.Design.Circuit);
    if (std::ranges::all_of(missing, [](int count) { return count == 0; }))
        return session.Prompts.Tell(
            {Icon::Information, "There is nothing to buy: all pieces of the design are owned.\n" +
                                    ReportOf(catalogue, session.Project, sets, {}).Remarks});
    const JobWork work = [&session, &catalogue, project = session.Project, missing,
                          sets](const JobWatch& watch) -> JobEnd {
        const PurchaseReport report =
            ReportOf(catalogue, project, sets, CheapestPurchase(missing, project.Stock, sets, watch));
        return [&session, report] {
            if (session.Windows != nullptr) session.Windows->ShowPurchase(report);
        };
    };
    session.StartJob({"Looking for the cheapest purchase", "A search for the cheapest purchase is running.", work});
}

} // namespace pistaro

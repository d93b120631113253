#include "commands/money_commands.h"

#include "money/purchase.h"
#include "money/purchase_text.h"
#include "storage/sets_file.h"

#include <algorithm>

namespace pistaro {

void BalanceCommand(Session& session) {
    const int track = session.Project.EditState.CurrentTrack;
    const Balance balance = BalanceLanes(session.Catalogue, session.Project.Design, track);
    if (balance.Steps.empty())
        session.Prompts.Tell({Icon::Information, BalanceText(balance, session.Project.Preferences.Units)});
    else
        session.Windows->ShowBalance(balance);
}

void BalanceTrack(Session& session, const Balance& balance) {
    session.Work([&] {
        session.NameStep("Balance Lanes");
        Track& track = *EditedTrack(session.Project.Design.Circuit, session.Project.EditState);
        track = Balanced(track, balance.Steps);
        session.Project.EditState.DataChanged = true;
    });
}

void PurchaseCommand(Session& session) {
    const BoxedSets sets = SetsBeside(session.Catalogue, session.SettingsPath).value_or(BoxedSets());
    const std::vector<int> missing =
        MissingPieces(session.Catalogue, session.Project.Stock, session.Project.Design.Circuit);
    if (std::ranges::all_of(missing, [](int count) { return count == 0; }))
        return session.Prompts.Tell(
            {Icon::Information, "There is nothing to buy: all pieces of the design are owned.\n" +
                                    PurchaseRemarks(session.Catalogue, session.Project, {})});
    const JobWork work = [&session, stock = session.Project.Stock, missing, sets](const JobWatch& watch) -> JobEnd {
        const Purchase purchase = CheapestPurchase(missing, stock, sets, watch);
        return [&session, purchase, sets] { session.Windows->ShowPurchase(purchase, sets); };
    };
    session.StartJob({"Looking for the cheapest purchase", "A search for the cheapest purchase is running.", work});
}

} // namespace pistaro

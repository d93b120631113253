#include "commands/money_commands.h"

#include "checks/balance.h"
#include "money/purchase.h"
#include "money/purchase_text.h"
#include "storage/sets_file.h"

namespace pistaro {

void BalanceCommand(Session& session) {
    const int track = session.Project.EditState.CurrentTrack;
    const Balance balance = BalanceLanes(session.Catalogue, session.Project.Design, track);
    const std::string text = BalanceText(balance, session.Project.Preferences.Units);
    if (balance.Steps.empty()) return session.Prompts.Tell({Icon::Information, text});
    if (session.Prompts.Ask(text, Buttons::OkCancel) != Answer::Ok) return;
    Track& changed = session.Project.Design.Circuit.Tracks[static_cast<std::size_t>(track)];
    changed = Balanced(changed, balance.Steps);
    session.Project.EditState.DataChanged = true;
}

void PurchaseCommand(Session& session) {
    const BoxedSets sets = SetsBeside(session.Catalogue, session.SettingsPath).value_or(BoxedSets());
    const Catalogue& catalogue = session.Catalogue;
    const JobWork work = [&session, &catalogue, project = session.Project, sets](const JobWatch& watch) -> JobEnd {
        const std::vector<int> missing = MissingPieces(catalogue, project.Stock, project.Design.Circuit);
        const std::string text =
            PurchaseText(catalogue, project, sets, CheapestPurchase(missing, project.Stock, sets, watch));
        return [&session, text] { session.Prompts.Tell({Icon::Information, text}); };
    };
    session.StartJob({"Looking for the cheapest purchase", "A search for the cheapest purchase is running.", work});
}

} // namespace pistaro

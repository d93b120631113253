#include "commands/money_commands.h"

#include "editor/picking.h"
#include "editor/track_editing.h"
#include "money/purchase.h"
#include "money/purchase_text.h"
#include "storage/sets_file.h"

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

/// Why there is nothing to buy for it.
std::string WhyNothing(const Catalogue& catalogue, const Circuit& circuit) {
    if (std::ranges::all_of(circuit.Tracks, [](const Track& track) { return track.ElementCodes.empty(); }))
        return "the design has no pieces yet.";
    const std::vector<int> used = CountUsedByProduct(catalogue, circuit);
    return std::ranges::all_of(used, [](int count) { return count == 0; })
               ? "the design has no pieces of the catalogue."
               : "all pieces of the design are owned.";
}

} // namespace

void BalanceCommand(Session& session) {
    const Balance balance =
        BalanceLanes(session.Catalogue, session.Project.Design, session.Project.EditState.CurrentTrack);
    if (!balance.Steps.empty()) return session.Windows->ShowBalance(balance);
    session.Prompts.Tell({Icon::Information, BalanceText(balance, session.Project.Preferences.Units)});
}

void BalanceTrack(Session& session, const Balance& balance) {
    session.NameStep("Balance Lanes");
    Track& track = *EditedTrack(session.Project.Design.Circuit, session.Project.EditState);
    track = Balanced(track, balance.Steps);
    session.Project.EditState.DataChanged = true;
}

void MendCircuit(Session& session, const Mend& mend) {
    session.NameStep(mend.Caption);
    Circuit& circuit = session.Project.Design.Circuit;
    const Circuit before = std::exchange(circuit, mend.Circuit);
    session.Project.EditState.DataChanged = true;
    for (int track = 0; track < TrackCount; ++track) {
        const auto at = static_cast<std::size_t>(track);
        const auto changed = std::ranges::mismatch(circuit.Tracks[at].ElementCodes, before.Tracks[at].ElementCodes).in1;
        if (changed == circuit.Tracks[at].ElementCodes.end()) continue;
        if (session.Project.EditState.CurrentTrack != track) ChooseTrack(session.Project.EditState, track);
        SelectElement(circuit, session.Project.EditState,
                      static_cast<int>(changed - circuit.Tracks[at].ElementCodes.begin()));
    }
}

void PurchaseCommand(Session& session) {
    const Catalogue& catalogue = session.Catalogue;
    const BoxedSets sets = SetsBeside(catalogue, session.SettingsPath).value_or(BoxedSets());
    const std::vector<int> missing = MissingPieces(catalogue, session.Project.Stock, session.Project.Design.Circuit);
    if (std::ranges::all_of(missing, [](int count) { return count == 0; })) {
        const std::string why = WhyNothing(catalogue, session.Project.Design.Circuit);
        return session.Prompts.Tell({Icon::Information, "There is nothing to buy: " + why + "\n" +
                                                            ReportOf(catalogue, session.Project, sets, {}).Remarks});
    }
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

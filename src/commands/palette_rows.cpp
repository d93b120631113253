// Rows of the palette's special pieces and its search, of the tour and of the samples.
#include "commands/command_groups.h"

#include "commands/circuit_commands.h"
#include "commands/row_parts.h"
#include "commands/session.h"
#include "commands/side_columns.h"
#include "editor/building.h"
#include "editor/tour.h"

#include <algorithm>

namespace pistaro {

namespace {

bool IsEmpty(const Circuit& circuit) {
    return std::ranges::all_of(circuit.Tracks, [](const Track& track) { return track.ElementCodes.empty(); });
}

/// What a press on a special piece's entry does now, for the history.
std::string StepOf(const Session& session, const std::string& code) {
    const EditState& edit = session.Project.EditState;
    const Circuit& circuit = session.Project.Design.Circuit;
    const std::string product(ProductCode(code));
    const bool replaces = session.Times == 1 && FitsSelected(session.Catalogue, circuit, edit, code);
    return replaces ? "Replace " + std::string(ProductCode(SelectedCode(circuit, edit))) + " by " + product
                    : StepOfLaying(session, product);
}

Command SpecialRow(const CatalogueEntry& piece) {
    const std::string code = piece.Code;
    return {.Id = "special " + code,
            .Control = "mnuSpecial",
            .Tag = code,
            .Caption = std::string(ProductCode(code)) + "  " + piece.LongName,
            .Tip = "Replace the selected piece by this one where it fits, else add it",
            .WhyNot = OneTrackChosen,
            .Run =
                [code](Session& session) {
                    LaySpecial(session.Catalogue, session.Project.Design, session.Project.EditState, code,
                               session.TakeTimes());
                },
            .Step = [code](const Session& session) { return StepOf(session, code); }};
}

/// The tour begins with nothing: what lies there makes way as for New, if its user agrees.
void TourCommand(Session& session) {
    if (!IsEmpty(session.Project.Design.Circuit)) NewCommand(session);
    if (!IsEmpty(session.Project.Design.Circuit)) return;
    BeginTour(session.Project.EditState);
    ShowPieceColumn(session);
    session.Windows->ShowTour();
}

} // namespace

void AddPaletteCommands(std::vector<Command>& rows, const Catalogue& catalogue) {
    for (const CatalogueEntry& piece : catalogue) {
        if (!piece.IsBasic()) rows.push_back(SpecialRow(piece));
    }
    rows.push_back({.Id = "find piece",
                    .Control = "mnuFindPiece",
                    .Caption = "&Find Piece",
                    .Tip = "Find a piece by part of its code, its name or its angle",
                    .Key = "Ctrl+F",
                    .From = Availability::WindowOnly,
                    .WhyNot = HasWindows,
                    .Run = [](Session& session) {
                        ShowPieceColumn(session);
                        session.Windows->FindPiece();
                    }});
    rows.push_back({.Id = "samples",
                    .Control = "mnuSamples",
                    .Caption = "Sa&mples…",
                    .Tip = "Look at the circuits that come with Pistaro, and open one",
                    .From = Availability::WindowOnly,
                    .WhyNot = HasWindows,
                    .Run = [](Session& session) { session.Windows->ShowSamples(); }});
    rows.push_back({.Id = "tour",
                    .Control = "mnuTour",
                    .Caption = "&Tour",
                    .Tip = "Lay a first oval, step by step",
                    .From = Availability::WindowOnly,
                    .WhyNot = HasWindows,
                    .Run = TourCommand});
}

} // namespace pistaro

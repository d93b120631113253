// Rows that lead out of the drawing: settings, reports, checks, paper and files, help.
#include "commands/command_groups.h"

#include "commands/clipboard_commands.h"
#include "commands/money_commands.h"
#include "commands/picture_commands.h"
#include "commands/row_parts.h"
#include "commands/session.h"
#include "report/viewer.h"

#include <algorithm>

namespace pistaro {

namespace {

std::string JobRuns(const Session& session) { return session.HasJob() ? "" : "Nothing is running."; }

bool HasPieces(const Circuit& circuit) {
    return std::ranges::any_of(circuit.Tracks, [](const Track& track) { return !track.ElementCodes.empty(); });
}

std::string AnyPieces(const Session& session) {
    return HasPieces(session.Project.Design.Circuit) ? "" : "There are no pieces yet.";
}

std::string PiecesToShow(const Session& session) {
    std::string whyNot = HasWindows(session);
    return whyNot.empty() ? AnyPieces(session) : whyNot;
}

/// A room alone can be drawn, too.
std::string AnythingToDraw(const Session& session) {
    std::string whyNot = HasWindows(session);
    if (!whyNot.empty()) return whyNot;
    return session.Project.Design.Room.Points.empty() ? AnyPieces(session) : "";
}

std::string AnythingToCopy(const Session& session) {
    std::string whyNot = HasWindows(session);
    if (!whyNot.empty()) return whyNot;
    return session.Project.EditState.ShowsAllTracks() ? AnyPieces(session) : TrackHasElements(session);
}

/// A row that opens a window on what is drawn.
Command DrawingRow(Command row) {
    row.WhyNot = AnythingToDraw;
    return row;
}

} // namespace

void AddCheckCommands(std::vector<Command>& rows) {
    rows.push_back(WindowRow("checks", "mnuChecks", "C&hecks", "Show problems with the design beside the drawing", "F8",
                             Panel::Checks));
    rows.push_back(WindowRow("stock and price", "mnuMoney", "Stock and &Price",
                             "Show what the pieces cost, beside the drawing", "", Panel::Money));
    rows.push_back({.Id = "balance",
                    .Control = "mnuBalance",
                    .Caption = "&Balance Lanes…",
                    .Tip = "Find the fewest changes that make both lanes of the track equally long",
                    .From = Availability::WindowOnly,
                    .WhyNot = TrackHasElements,
                    .Run = BalanceCommand});
    rows.push_back(WindowRow("boxed sets", "mnuSets", "&Boxed Sets…", "Tell what your shop sells in boxes", "",
                             &Windows::ShowSets));
    rows.push_back({.Id = "purchase",
                    .Control = "mnuPurchase",
                    .Caption = "&Cheapest Purchase",
                    .Tip = "Find the cheapest way to buy what is missing, from boxes and single pieces",
                    .From = Availability::WindowOnly,
                    .WhyNot = NoJobRuns,
                    .Run = PurchaseCommand});
}

void AddSettingsCommands(std::vector<Command>& rows) {
    rows.push_back(WindowRow("draw area", "mnuDrawArea", "&Draw Area…",
                             "Set the window, the grid, the units and your room's outline", "F2",
                             &Windows::ShowDrawArea));
    rows.push_back(WindowRow("choose colours", "mnuColors", "&Colours…", "Choose the colours of the drawing", "",
                             &Windows::ShowColours));
    rows.push_back(WindowRow("loose track", "mnuTrackStock", "&Loose Track…",
                             "Tell how many pieces you own, and what one costs", "F3", &Windows::ShowStock));
}

void AddReportCommands(std::vector<Command>& rows) {
    rows.push_back(WindowRow("statistics", "mnuStats", "&Statistics…", "Show lengths, prices and what is to buy", "F4",
                             &Windows::ShowStatistics));
    rows.push_back({.Id = "guide",
                    .Control = "mnuReport",
                    .Caption = "Design &Guide",
                    .Tip = "Write the guide, a page with the layout and every piece in its order",
                    .Key = "Ctrl+G",
                    .From = Availability::WindowOnly,
                    .WhyNot = NoJobRuns,
                    .Run = GuideCommand});
    rows.push_back({.Id = "cancel job",
                    .Control = "cmdCancelJob",
                    .Caption = "Cancel",
                    .Tip = "Cancel; no files are changed",
                    .From = Availability::WindowOnly,
                    .WhyNot = JobRuns,
                    .Run = [](Session& session) { session.CancelJob(); }});
    rows.push_back({.Id = "save picture",
                    .Control = "mnuWMF",
                    .Caption = "Save &Picture",
                    .Tip = "Write the drawing into the working directory as track.bmp",
                    .Key = "Ctrl+Shift+P",
                    .From = Availability::WindowOnly,
                    .Run = SavePictureCommand});
}

void AddExchangeCommands(std::vector<Command>& rows) {
    rows.push_back(
        DrawingRow(WindowRow("export", "mnuExport", "&Export…", "Write the circuit as a picture, a drawing or a table",
                             "Ctrl+E", &Windows::ShowExport)));
    rows.push_back(
        DrawingRow(WindowRow("print", "mnuPrint", "&Print…", "Print the circuit on a sheet, or to scale in tiles",
                             "Ctrl+P", &Windows::ShowPrint)));
    Command plan =
        WindowRow("build plan", "mnuBuildPlan", "&Build Plan…",
                  "Write in which steps the circuit is laid, and what is needed", "", &Windows::ShowBuildPlan);
    plan.WhyNot = PiecesToShow;
    rows.push_back(std::move(plan));
    rows.push_back(
        {.Id = "copy",
         .Control = "mnuCopy",
         .Caption = "&Copy",
         .Tip = "Put the picture and the list of the track's pieces on the clipboard, or of several selected ones",
         .Key = "Ctrl+C",
         .From = Availability::WindowOnly,
         .WhyNot = AnythingToCopy,
         .Run = CopyCommand});
    rows.push_back(
        {.Id = "paste",
         .Control = "mnuPaste",
         .Caption = "&Paste Pieces",
         .Tip = "Lay the pieces that a list on the clipboard names, such as C160 x3, at the end of the track",
         .Key = "Ctrl+V",
         .From = Availability::WindowOnly,
         .WhyNot =
             [](const Session& session) {
                 for (const auto whyNot : {HasWindows, OneTrackChosen}) {
                     if (std::string words = whyNot(session); !words.empty()) return words;
                 }
                 return std::string();
             },
         .Run = PasteCommand});
}

void AddHelpCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "manual",
                    .Control = "mnuManual",
                    .Caption = "&Manual",
                    .Tip = "Open the manual",
                    .Key = "F1",
                    .From = Availability::WindowOnly,
                    .Run = [](Session& session) { OpenManual(session.Project.Preferences); }});
    rows.push_back(
        WindowRow("about", "mnuAbout", "&About Pistaro", "Tell what this program is", "", &Windows::ShowAbout));
}

} // namespace pistaro

// The table's rows, group by group. It is long because it is the one place that lists every command.
#include "commands/commands.h"

#include "commands/background_commands.h"
#include "commands/build_plan_commands.h"
#include "commands/canvas_commands.h"
#include "commands/circuit_commands.h"
#include "commands/clipboard_commands.h"
#include "commands/closing_commands.h"
#include "commands/laying_commands.h"
#include "commands/money_commands.h"
#include "commands/palette_commands.h"
#include "commands/picture_commands.h"
#include "commands/session.h"
#include "editor/building.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "platform/files.h"
#include "report/viewer.h"

#include <algorithm>

namespace pistaro {

namespace {

const Track* EditedTrack(const Session& session) {
    return EditedTrack(session.Project.Design.Circuit, session.Project.EditState);
}

std::string OneTrackChosen(const Session& session) {
    return session.Project.EditState.ShowsAllTracks() ? "Choose a single track first." : "";
}

std::string TrackHasElements(const Session& session) {
    const Track* const track = EditedTrack(session);
    if (track == nullptr) return OneTrackChosen(session);
    return track->ElementCodes.empty() ? "The track is empty." : "";
}

std::string ElementSelected(const Session& session) {
    std::string whyNot = TrackHasElements(session);
    if (!whyNot.empty()) return whyNot;
    return session.Project.EditState.SelectedElement() < 0 ? "Select an element first." : "";
}

std::string ZoomableIn(const Session& session) {
    return CanZoomIn(session.Project.Design.View) ? "" : "The view is as close as it gets.";
}

std::string HasBackground(const Session& session) {
    return session.Background ? "" : "There is no picture behind the circuit.";
}

std::string HasWindows(const Session& session) { return session.Windows == nullptr ? "There is no window." : ""; }

std::string HasScaledBackground(const Session& session) {
    return session.Project.Background ? HasWindows(session) : "No picture lies under the circuit at its true size.";
}

std::string KeepsWork(const Session& session) {
    return session.Windows == nullptr || session.Recovery == nullptr ? "There is no folder to keep unsaved work in."
                                                                     : "";
}

std::string NoJobRuns(const Session& session) {
    const Job* const job = session.CurrentJob();
    return job == nullptr ? "" : job->IsUnderWay;
}

std::string JobRuns(const Session& session) { return session.HasJob() ? "" : "Nothing is being worked on."; }

std::string SelectedProduct(const Session& session) {
    return std::string(ProductCode(SelectedCode(session.Project.Design.Circuit, session.Project.EditState)));
}

/// Words of the user's as a menu shows them, where "&" marks a key.
std::string MenuText(const std::string& words) {
    std::string text;
    for (const char c : words)
        text += c == '&' ? "&&" : std::string(1, c);
    return text;
}

/// "Move Up-Left": a row's id as a title.
std::string Titled(std::string id) {
    for (std::size_t at = 0; at < id.size(); ++at) {
        const bool begins = at == 0 || id[at - 1] == ' ' || id[at - 1] == '-';
        if (begins && id[at] >= 'a' && id[at] <= 'z') id[at] = static_cast<char>(id[at] - 'a' + 'A');
    }
    return id;
}

/// One of the circuits that were loaded and saved last; empty where there are not so many.
std::filesystem::path RecentCircuit(const Session& session, std::size_t place) {
    const auto& list = session.Recent.List();
    return place < list.size() ? list[place] : std::filesystem::path();
}

/// "&1 tracks/oval.trk"
std::string RecentText(const std::filesystem::path& circuit, std::size_t place) {
    const std::string key = place < 9 ? "&" + std::to_string(place + 1) : "1&0";
    return key + " " + MenuText(TextFromPath(circuit.parent_path().filename() / circuit.filename()));
}

Command RecentRow(std::size_t place) {
    const std::string number = std::to_string(place + 1);
    return {.Id = "recent " + number,
            .Control = "mnuRecent",
            .Tag = number,
            .Index = static_cast<int>(place),
            .Caption = "Recent circuit " + number,
            .Tip = "Open this circuit again",
            .From = Door::WindowOnly,
            .WhyNot = [place](const Session& session) -> std::string {
                const std::filesystem::path circuit = RecentCircuit(session, place);
                if (circuit.empty()) return "No circuit stands here yet.";
                std::error_code gone;
                return std::filesystem::exists(circuit, gone) ? "" : TextFromPath(circuit) + " is no longer there.";
            },
            .Run = [place](Session& session) { LoadFileCommand(session, RecentCircuit(session, place)); },
            .Shows =
                [place, caption = "Recent circuit " + number](const Session& session) {
                    const std::filesystem::path circuit = RecentCircuit(session, place);
                    return circuit.empty() ? caption : RecentText(circuit, place);
                }};
}

void AddRecentCommands(std::vector<Command>& rows) {
    for (std::size_t place = 0; place < RecentCircuits::Most; ++place)
        rows.push_back(RecentRow(place));
    rows.push_back({.Id = "recent clear",
                    .Control = "mnuRecentClear",
                    .Caption = "&Clear",
                    .Tip = "Forget these circuits; their files stay",
                    .From = Door::WindowOnly,
                    .WhyNot = [](const Session& session) -> std::string {
                        return session.Recent.List().empty() ? "There are none." : "";
                    },
                    .Run = [](Session& session) { session.Recent.Clear(); }});
}

void AddCircuitCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "new",
                    .Control = "mnuCircuitReinit",
                    .Caption = "&New",
                    .Tip = "Start a new, empty circuit",
                    .Key = "Ctrl+N",
                    .Run = NewCommand});
    rows.push_back({.Id = "load",
                    .Control = "mnuCircuitLoad",
                    .Caption = "&Load…",
                    .Tip = "Open a circuit file",
                    .Key = "Ctrl+O",
                    .Run = LoadCommand});
    rows.push_back({.Id = "plain save",
                    .Control = "mnuCircuitPlainSave",
                    .Caption = "&Save",
                    .Tip = "Write the circuit to its file",
                    .Key = "Ctrl+S",
                    .From = Door::WindowOnly,
                    .Run = PlainSaveCommand});
    rows.push_back({.Id = "save",
                    .Control = "mnuCircuitSave",
                    .Caption = "Save &As…",
                    .Tip = "Write the circuit to a file that you name",
                    .Key = "Ctrl+Shift+S",
                    .Run = SaveCommand});
    rows.push_back({.Id = "recovered work",
                    .Control = "mnuRecovered",
                    .Caption = "&Recovered Work…",
                    .Tip = "Look at work that was not saved, and open it",
                    .From = Door::WindowOnly,
                    .WhyNot = KeepsWork,
                    .Run = [](Session& session) { session.Windows->ShowRecovered(); }});
    rows.push_back({.Id = "quit",
                    .Control = "mnuQuit",
                    .Caption = "&Quit",
                    .Tip = "End Pistaro",
                    .Key = "Ctrl+Q",
                    .From = Door::WindowOnly,
                    .Run = QuitCommand});
}

/// A row that opens a window.
Command WindowRow(const char* id, const char* control, const char* caption, const char* tip, const char* key,
                  void (Windows::*show)()) {
    return {.Id = id,
            .Control = control,
            .Caption = caption,
            .Tip = tip,
            .Key = key,
            .From = Door::WindowOnly,
            .WhyNot = HasWindows,
            .Run = [show](Session& session) { (session.Windows->*show)(); }};
}

/// "Undo Add C151": a row that names the state it goes to or from.
std::string NamingStep(const char* caption, bool can, const Session& session, std::size_t state) {
    return can ? caption + (" " + MenuText(session.History().Caption(state))) : caption;
}

void AddHistoryCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "undo",
                    .Control = "mnuUndo",
                    .Caption = "&Undo",
                    .Tip = "Take the last change back",
                    .Key = "Ctrl+Z",
                    .Repeatable = true,
                    .WhyNot = [](const Session& session) -> std::string {
                        return session.History().CanUndo() ? "" : "There is nothing to undo.";
                    },
                    .Run = [](Session& session) { session.GoTo(session.History().Present() - 1); },
                    .Shows =
                        [](const Session& session) {
                            const History& history = session.History();
                            return NamingStep("&Undo", history.CanUndo(), session, history.Present());
                        }});
    rows.push_back({.Id = "redo",
                    .Control = "mnuRedo",
                    .Caption = "&Redo",
                    .Tip = "Do again what was undone",
                    .Key = "Ctrl+Shift+Z",
                    .OtherKey = "Ctrl+Y",
                    .Repeatable = true,
                    .WhyNot = [](const Session& session) -> std::string {
                        return session.History().CanRedo() ? "" : "There is nothing to redo.";
                    },
                    .Run = [](Session& session) { session.GoTo(session.History().Present() + 1); },
                    .Shows =
                        [](const Session& session) {
                            const History& history = session.History();
                            return NamingStep("&Redo", history.CanRedo(), session, history.Present() + 1);
                        }});
    rows.push_back(WindowRow("history", "mnuHistory", "&History…", "List all changes, to go back to any of them",
                             "Ctrl+H", &Windows::ShowHistory));
}

void AddModes(std::vector<Command>& rows) {
    rows.push_back({.Id = "build",
                    .Control = "cmdInsert",
                    .Caption = "Build",
                    .Tip = "Add new pieces at the end of the track",
                    .Key = "Ins",
                    .WhyNot = OneTrackChosen,
                    .Run = [](Session& session) { session.Project.EditState.InsertMode = false; }});
    rows.push_back({.Id = "insert",
                    .Control = "cmdInsert",
                    .Caption = "Insert",
                    .Tip = "Put new pieces in front of the selected one",
                    .Key = "Ins",
                    .WhyNot = OneTrackChosen,
                    .Run = [](Session& session) { session.Project.EditState.InsertMode = true; }});
    rows.push_back({.Id = "system",
                    .Control = "mnuScalextricNinco",
                    .Caption = "Use Ninco Track",
                    .Tip = "Offer the other system's pieces",
                    .Key = "Ctrl+T",
                    .Run = [](Session& session) { SwitchTrackSystem(session.Project.EditState); },
                    .Shows = [](const Session& session) -> std::string {
                        const bool scalextric = session.Project.EditState.System == TrackSystem::Scalextric;
                        return scalextric ? "Use Ninco Track" : "Use Scalextric Track";
                    }});
    rows.push_back({.Id = "see remaining",
                    .Control = "cmdSeeRemaining",
                    .Caption = "See re&maining",
                    .Tip = "Hold to see how many pieces of each shape you have left",
                    .From = Door::WindowOnly,
                    .Run = [](Session&) {}}); // its effect lasts while the button is held
}

Command AddRow(const CatalogueEntry& piece, int row) {
    const std::string code = piece.Code;
    const TrackSystem system = piece.System;
    return {.Id = "add " + code,
            .Control = "cmdElement",
            .Tag = code,
            .Index = row,
            .Caption = PieceCaption(code),
            .Tip = code + ", " + piece.LongName,
            .WhyNot = [system](const Session& session) -> std::string {
                const EditState& edit = session.Project.EditState;
                if (edit.ShowsAllTracks()) return OneTrackChosen(session);
                if (edit.System == system) return "";
                return system == TrackSystem::Ninco ? "Switch to Ninco track first."
                                                    : "Switch to Scalextric track first.";
            },
            .Run =
                [code](Session& session) {
                    AddPiece(session.Catalogue, session.Project.Design, session.Project.EditState, code);
                },
            .Step =
                [product = std::string(ProductCode(code))](const Session& session) {
                    const EditState& edit = session.Project.EditState;
                    return (edit.InsertMode && edit.SelectedElement() >= 0 ? "Insert " : "Add ") + product;
                }};
}

Command ReplaceRow(const CatalogueEntry& piece) {
    const std::string product(ProductCode(piece.Code));
    return {
        .Id = "replace " + product,
        .Control = "mnu" + product,
        .Caption = product + "  " + piece.LongName,
        .Tip = "Replace the selected piece by this one",
        .WhyNot = [product](const Session& session) -> std::string {
            std::string whyNot = ElementSelected(session);
            if (!whyNot.empty()) return whyNot;
            const bool fits = IsVariantOfSelected(session.Catalogue, session.Project.Design.Circuit,
                                                  session.Project.EditState, product);
            return fits ? "" : "The selected piece has another shape.";
        },
        .Run =
            [product](Session& session) {
                ReplaceSelected(session.Catalogue, session.Project.Design, session.Project.EditState, product);
            },
        .Step = [product](const Session& session) { return "Replace " + SelectedProduct(session) + " by " + product; }};
}

void AddPieceCommands(std::vector<Command>& rows, const Catalogue& catalogue) {
    for (int row = 0; row < catalogue.Count(); ++row) {
        if (catalogue[row].IsBasic()) rows.push_back(AddRow(catalogue[row], row));
    }
    for (const int row : catalogue.VariantRows())
        rows.push_back(ReplaceRow(catalogue[row]));
}

/// A row's function on the design and what is done to it.
template <typename Function>
std::function<void(Session&)> OnDesign(Function function) {
    return [function](Session& session) { function(session.Project.Design, session.Project.EditState); };
}

Command MoveRow(const char* where, const char* control, const char* arrow, const char* key, int right, int up) {
    return {.Id = std::string("move ") + where,
            .Control = control,
            .Caption = arrow,
            .Tip = std::string("Move ") + where + " by one track width",
            .Key = key,
            .Repeatable = true,
            .Run = OnDesign([right, up](Design& design, EditState& edit) { MoveTracks(design, edit, right, up); }),
            .Step = [step = Titled(std::string("move ") + where)](const Session&) { return step; }};
}

Command RotateRow(const char* where, const char* control, const char* arrow, const char* key, Rotation rotation) {
    return {.Id = std::string("rotate ") + where,
            .Control = control,
            .Caption = arrow,
            .Tip = std::string("Rotate the track to the ") + where + "; with all tracks chosen, the room",
            .Key = key,
            .Repeatable = true,
            .Run = OnDesign([rotation](Design& design, EditState& edit) { Rotate(design, edit, rotation); }),
            .Step = [turn = Titled(std::string("rotate ") + where)](const Session& session) {
                return turn + (session.Project.EditState.ShowsAllTracks() ? " (Room)" : "");
            }};
}

Command ChooseRow(int track) {
    const std::string number = std::to_string(track + 1);
    return {.Id = "track " + number,
            .Control = "optTrack",
            .Tag = number,
            .Index = track,
            .Caption = number,
            .Tip = "Edit track " + number,
            .Key = "Ctrl+" + number,
            .Run = [track](Session& session) { ChooseTrack(session.Project.EditState, track); },
            .IsOn = [track](const Session& session) { return session.Project.EditState.CurrentTrack == track; }};
}

void AddTrackChanges(std::vector<Command>& rows) {
    rows.push_back({.Id = "delete",
                    .Control = "cmdDelete",
                    .Caption = "Delete",
                    .Tip = "Take the selected element out of the track",
                    .Key = "Del",
                    .WhyNot = ElementSelected,
                    .Run = OnDesign(DeleteElement),
                    .Step = [](const Session& session) { return "Delete " + SelectedProduct(session); }});
    rows.push_back({.Id = "mirror",
                    .Control = "mnuMirror",
                    .Caption = "&Mirror",
                    .Tip = "Swap the left and right curves of the track",
                    .Key = "Ctrl+M",
                    .WhyNot = TrackHasElements,
                    .Run = OnDesign(MirrorTrack)});
    rows.push_back({.Id = "invert",
                    .Control = "mnuInvert",
                    .Caption = "&Invert",
                    .Tip = "Lay the track in the opposite direction",
                    .Key = "Ctrl+I",
                    .WhyNot = TrackHasElements,
                    .Run = OnDesign(InvertTrack)});
}

void AddClosingCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "close loop",
                    .Control = "mnuCloseLoop",
                    .Caption = "&Close the Loop",
                    .Tip = "Go through the pieces that close the track, and lay some of them",
                    .Key = "Ctrl+Return",
                    .From = Door::WindowOnly,
                    .WhyNot = WhyNotClose,
                    .Run = [](Session& session) { session.Windows->ShowClosings(); }});
    rows.push_back({.Id = "other pieces",
                    .Control = "mnuReplaceBy",
                    .Caption = "&Replace by…",
                    .Tip = "Go through other pieces that lead from the selected ones' begin to their end",
                    .Key = "Ctrl+Shift+Return",
                    .From = Door::WindowOnly,
                    .WhyNot = ElementSelected,
                    .Run = [](Session& session) { session.Windows->ShowReplacements(); }});
    rows.push_back({.Id = "suggest",
                    .Control = "mnuSuggest",
                    .Caption = "&Suggest",
                    .Tip = "Show the best closing of the track in the drawing as soon as six pieces or fewer would do",
                    .From = Door::WindowOnly,
                    .Run = [](Session& session) { session.Suggests ^= true; },
                    .IsOn = [](const Session& session) { return session.Suggests; }});
}

/// Circuits laid from pieces.
void AddLayingCommands(std::vector<Command>& rows) {
    rows.push_back(WindowRow("from my box", "mnuFromBox", "From My &Box…",
                             "Lay circuits from the pieces that you own, in your room", "Ctrl+B", &Windows::ShowBox));
    Command variations =
        WindowRow("variations", "mnuVariations", "&Variations…",
                  "Lay other circuits from the pieces of this one, or keep a part of it", "", &Windows::ShowVariations);
    variations.WhyNot = WhyNotVary;
    rows.push_back(std::move(variations));
}

void AddMoves(std::vector<Command>& rows) {
    rows.push_back(MoveRow("up", "cmdMvUp", "↑", "Ctrl+Up", 0, 1));
    rows.push_back(MoveRow("down", "cmdMvDn", "↓", "Ctrl+Down", 0, -1));
    rows.push_back(MoveRow("left", "cmdMvLeft", "←", "Ctrl+Left", -1, 0));
    rows.push_back(MoveRow("right", "cmdMvRight", "→", "Ctrl+Right", 1, 0));
    rows.push_back(MoveRow("up-left", "cmdMvUpLeft", "↖", "Ctrl+Home", -1, 1));
    rows.push_back(MoveRow("up-right", "cmdMvUpRight", "↗", "Ctrl+PgUp", 1, 1));
    rows.push_back(MoveRow("down-left", "cmdMvDnLeft", "↙", "Ctrl+End", -1, -1));
    rows.push_back(MoveRow("down-right", "cmdMvDnRight", "↘", "Ctrl+PgDown", 1, -1));
    rows.push_back(RotateRow("left", "cmdRotLeft", "↺", "Ctrl+L", Rotation::Left));
    rows.push_back(RotateRow("right", "cmdRotRight", "↻", "Ctrl+R", Rotation::Right));
}

void AddTrackChoices(std::vector<Command>& rows) {
    for (int track = 0; track < TrackCount; ++track)
        rows.push_back(ChooseRow(track));
    rows.push_back({.Id = "track all",
                    .Control = "optAll",
                    .Caption = "All",
                    .Tip = "Move all tracks together, and turn the room",
                    .Key = "Ctrl+0",
                    .Run = [](Session& session) { ChooseAllTracks(session.Project.EditState); },
                    .IsOn = [](const Session& session) { return session.Project.EditState.ShowsAllTracks(); }});
}

void AddViewCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "zoom in",
                    .Control = "cmdZoomIn",
                    .Caption = "+",
                    .Tip = "Show less, but larger",
                    .Key = "Ctrl++",
                    .OtherKey = "Ctrl+=",
                    .Repeatable = true,
                    .WhyNot = ZoomableIn,
                    .Run = [](Session& session) { ZoomIn(session.Project.Design.View); }});
    rows.push_back({.Id = "zoom out",
                    .Control = "cmdZoomOut",
                    .Caption = "−",
                    .Tip = "Show more, but smaller",
                    .Key = "Ctrl+-",
                    .Repeatable = true,
                    .Run = [](Session& session) { ZoomOut(session.Project.Design.View); }});
    rows.push_back({.Id = "refresh",
                    .Control = "cmdRefresh",
                    .Caption = "Refresh",
                    .Tip = "Draw the circuit again",
                    .Key = "F5",
                    .From = Door::WindowOnly,
                    .Run = [](Session&) {}}); // the redraw follows every command
    rows.push_back({.Id = "numbers",
                    .Control = "chkNumbers",
                    .Caption = "&Numbers",
                    .Tip = "Show each element's number in the drawing",
                    .From = Door::WindowOnly,
                    .Run = [](Session& session) { session.Project.EditState.ShowNumbers ^= true; },
                    .IsOn = [](const Session& session) { return session.Project.EditState.ShowNumbers; }});
}

void AddBackgroundCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "background select",
                    .Control = "mnuBackgroundSelect",
                    .Caption = "Select &Background…",
                    .Tip = "Lay a picture behind the circuit, such as a floor plan",
                    .From = Door::WindowOnly,
                    .Run = SelectBackgroundCommand});
    rows.push_back({.Id = "background clear",
                    .Control = "mnuBackgroundClear",
                    .Caption = "&Clear Background",
                    .Tip = "Take the picture behind the circuit away",
                    .From = Door::WindowOnly,
                    .WhyNot = HasBackground,
                    .Run = [](Session& session) { session.Background.reset(); }});
    rows.push_back({.Id = "background import",
                    .Control = "mnuBackgroundImport",
                    .Caption = "&Import Background to Scale…",
                    .Tip = "Lay a picture under the circuit at its true size, and keep it with the circuit",
                    .From = Door::WindowOnly,
                    .WhyNot = HasWindows,
                    .Run = ImportBackgroundCommand});
    rows.push_back({.Id = "background place",
                    .Control = "mnuBackgroundPlace",
                    .Caption = "Place Backgroun&d…",
                    .Tip = "Move, turn or scale the picture that lies under the circuit at its true size",
                    .From = Door::WindowOnly,
                    .WhyNot = HasScaledBackground,
                    .Run = [](Session& session) { session.Windows->ShowBackground(*session.Project.Background); }});
    rows.push_back({.Id = "background remove",
                    .Control = "mnuBackgroundRemove",
                    .Caption = "&Remove Background to Scale",
                    .Tip = "Take the picture away that lies under the circuit at its true size",
                    .From = Door::WindowOnly,
                    .WhyNot = HasScaledBackground,
                    .Run = [](Session& session) { SetBackground(session, nullptr); }});
}

/// A row that shows a panel, or hides it.
Command PanelRow(const char* id, const char* control, const char* caption, const char* tip, const char* key,
                 Panel panel) {
    return {.Id = id,
            .Control = control,
            .Caption = caption,
            .Tip = tip,
            .Key = key,
            .From = Door::WindowOnly,
            .WhyNot = HasWindows,
            .Run = [panel](Session& session) { session.Windows->TogglePanel(panel); },
            .IsOn =
                [panel](const Session& session) {
                    return session.Windows != nullptr && session.Windows->IsPanelShown(panel);
                }};
}

void AddCheckCommands(std::vector<Command>& rows) {
    rows.push_back(PanelRow("checks", "mnuChecks", "&Checks", "Tell beside the drawing what is wrong with the design",
                            "F8", Panel::Checks));
    rows.push_back(PanelRow("stock and price", "mnuMoney", "Stock and &Price",
                            "Show beside the drawing what its pieces cost", "", Panel::Money));
    rows.push_back(PanelRow("lanes", "mnuLanes", "&Lanes",
                            "Paint each lane in its own colour, through every change-over", "", Panel::Lanes));
    rows.push_back({.Id = "balance",
                    .Control = "mnuBalance",
                    .Caption = "&Balance Lanes…",
                    .Tip = "Find the fewest changes that make both lanes of the track equally long",
                    .From = Door::WindowOnly,
                    .WhyNot = TrackHasElements,
                    .Run = BalanceCommand});
    rows.push_back(WindowRow("boxed sets", "mnuSets", "&Boxed Sets…", "Tell what your shop sells in boxes", "",
                             &Windows::ShowSets));
    rows.push_back({.Id = "purchase",
                    .Control = "mnuPurchase",
                    .Caption = "&Cheapest Purchase",
                    .Tip = "Find the cheapest way to buy what is missing, from boxes and single pieces",
                    .From = Door::WindowOnly,
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
                    .From = Door::WindowOnly,
                    .WhyNot = NoJobRuns,
                    .Run = GuideCommand});
    rows.push_back({.Id = "cancel job",
                    .Control = "cmdCancelJob",
                    .Caption = "Cancel",
                    .Tip = "End this work; files stay as they were",
                    .From = Door::WindowOnly,
                    .WhyNot = JobRuns,
                    .Run = [](Session& session) { session.CancelJob(); }});
    rows.push_back({.Id = "save picture",
                    .Control = "mnuWMF",
                    .Caption = "Save &Picture",
                    .Tip = "Write the drawing into the working directory as track.bmp",
                    .Key = "Ctrl+Shift+P",
                    .From = Door::WindowOnly,
                    .Run = SavePictureCommand});
}

/// The circuit on paper, in other programs, and pieces from there.
void AddExchangeCommands(std::vector<Command>& rows) {
    rows.push_back(WindowRow("export", "mnuExport", "&Export…", "Write the circuit as a picture, a drawing or a table",
                             "Ctrl+E", &Windows::ShowExport));
    rows.push_back(WindowRow("print", "mnuPrint", "&Print…", "Print the circuit on a sheet, or to scale in tiles",
                             "Ctrl+P", &Windows::ShowPrint));
    rows.push_back({.Id = "build plan",
                    .Control = "mnuBuildPlan",
                    .Caption = "&Build Plan…",
                    .Tip = "Write in which steps the circuit is laid, and what is needed",
                    .From = Door::WindowOnly,
                    .Run = BuildPlanCommand});
    rows.push_back({.Id = "copy",
                    .Control = "mnuCopy",
                    .Caption = "&Copy",
                    .Tip = "Put the picture and the list of pieces on the clipboard",
                    .Key = "Ctrl+C",
                    .From = Door::WindowOnly,
                    .WhyNot = HasWindows,
                    .Run = CopyCommand});
    rows.push_back(
        {.Id = "paste",
         .Control = "mnuPaste",
         .Caption = "&Paste Pieces",
         .Tip = "Lay the pieces that a list on the clipboard names, such as C160 x3, at the end of the track",
         .Key = "Ctrl+V",
         .From = Door::WindowOnly,
         .WhyNot =
             [](const Session& session) {
                 const std::string whyNot = HasWindows(session);
                 return whyNot.empty() ? OneTrackChosen(session) : whyNot;
             },
         .Run = PasteCommand});
}

void AddHelpCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "manual",
                    .Control = "mnuManual",
                    .Caption = "&Manual",
                    .Tip = "Open the manual",
                    .Key = "F1",
                    .From = Door::WindowOnly,
                    .Run = [](Session& session) { OpenManual(session.Project.Preferences); }});
    rows.push_back(
        WindowRow("about", "mnuAbout", "&About Pistaro", "Tell what this program is", "", &Windows::ShowAbout));
}

} // namespace

std::string PlainCaption(std::string_view caption) {
    constexpr std::string_view dots = "…";
    std::string plain(caption);
    if (plain.ends_with(dots)) plain.resize(plain.size() - dots.size());
    std::erase(plain, '&');
    return plain;
}

CommandTable::CommandTable(const Catalogue& catalogue) {
    AddCircuitCommands(rows_);
    AddRecentCommands(rows_);
    AddHistoryCommands(rows_);
    AddModes(rows_);
    AddPieceCommands(rows_, catalogue);
    AddTrackChanges(rows_);
    AddClosingCommands(rows_);
    AddLayingCommands(rows_);
    AddMoves(rows_);
    AddTrackChoices(rows_);
    AddViewCommands(rows_);
    AddCanvasCommands(rows_);
    AddBackgroundCommands(rows_);
    AddSettingsCommands(rows_);
    AddReportCommands(rows_);
    AddCheckCommands(rows_);
    AddExchangeCommands(rows_);
    AddHelpCommands(rows_);
    AddPaletteCommands(rows_, catalogue);
}

const Command* CommandTable::Find(std::string_view id) const {
    const auto found = std::ranges::find(rows_, id, &Command::Id);
    return found == rows_.end() ? nullptr : &*found;
}

} // namespace pistaro

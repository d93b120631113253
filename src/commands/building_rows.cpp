// Rows about building: modes, pieces, changes of a track, what closes it, moves, and which track it is.
#include "commands/command_groups.h"

#include "commands/closing_commands.h"
#include "commands/laying_commands.h"
#include "commands/row_parts.h"
#include "commands/session.h"
#include "editor/building.h"
#include "editor/track_editing.h"

namespace pistaro {

namespace {

std::string SelectedProduct(const Session& session) {
    return std::string(ProductCode(SelectedCode(session.Project.Design.Circuit, session.Project.EditState)));
}

/// "Move Up-Left": a row's id as a title.
std::string Titled(std::string id) {
    for (std::size_t at = 0; at < id.size(); ++at) {
        const bool begins = at == 0 || id[at - 1] == ' ' || id[at - 1] == '-';
        if (begins && id[at] >= 'a' && id[at] <= 'z') id[at] = static_cast<char>(id[at] - 'a' + 'A');
    }
    return id;
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
                    AddPiece(session.Catalogue, session.Project.Design, session.Project.EditState, code,
                             session.TakeTimes());
                },
            .Step = [product = std::string(ProductCode(code))](
                        const Session& session) { return StepOfLaying(session, product); }};
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

/// Circuits laid from pieces.

} // namespace

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
                    .From = Availability::WindowOnly,
                    .Run = [](Session&) {}}); // its effect lasts while the button is held
}

void AddPieceCommands(std::vector<Command>& rows, const Catalogue& catalogue) {
    for (int row = 0; row < catalogue.Count(); ++row) {
        if (catalogue[row].IsBasic()) rows.push_back(AddRow(catalogue[row], row));
    }
    for (const int row : catalogue.VariantRows())
        rows.push_back(ReplaceRow(catalogue[row]));
}

void AddTrackChanges(std::vector<Command>& rows) {
    rows.push_back({.Id = "delete",
                    .Control = "cmdDelete",
                    .Caption = "Delete",
                    .Tip = "Take the selected element out of the track",
                    .Key = "Del",
                    .OtherKey = "Backspace",
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
                    .Tip = "Show pieces that close the track, and add them",
                    .Key = "Ctrl+Return",
                    .From = Availability::WindowOnly,
                    .WhyNot = WhyNotClose,
                    .Run = [](Session& session) { session.Windows->ShowClosings(); }});
    rows.push_back({.Id = "other pieces",
                    .Control = "mnuReplaceBy",
                    .Caption = "&Replace by…",
                    .Tip = "Show other pieces that lead from the start of the selection to its end",
                    .Key = "Ctrl+Shift+Return",
                    .From = Availability::WindowOnly,
                    .WhyNot = ElementSelected,
                    .Run = [](Session& session) { session.Windows->ShowReplacements(); }});
}

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

} // namespace pistaro

// The table's rows, group by group. It is long because it is the one place that lists every command.
#include "editor/commands.h"

#include "editor/building.h"
#include "editor/circuit_commands.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"

#include <algorithm>

namespace pistaro {

namespace {

using WhyNotRule = std::function<std::string(const Project&)>;

std::string Always(const Project&) { return {}; }

std::string OneTrackChosen(const Project& project) {
    return project.Layout.ShowsAllTracks() ? "Choose a single track first." : "";
}

std::string TrackHasElements(const Project& project) {
    if (project.Layout.ShowsAllTracks()) return OneTrackChosen(project);
    return project.Layout.Current()->ElementCodes.empty() ? "The track is empty." : "";
}

std::string ElementSelected(const Project& project) {
    std::string whyNot = TrackHasElements(project);
    if (!whyNot.empty()) return whyNot;
    return project.Layout.Current()->CurrentElement < 0 ? "Select an element first." : "";
}

WhyNotRule ReplacesSelected(std::string_view variant) {
    return [variant](const Project& project) -> std::string {
        std::string whyNot = ElementSelected(project);
        if (!whyNot.empty()) return whyNot;
        return IsVariantOfSelected(project, variant) ? "" : "The selected piece has another shape.";
    };
}

WhyNotRule SystemOffered(TrackSystem system) {
    return [system](const Project& project) -> std::string {
        if (project.Layout.ShowsAllTracks()) return OneTrackChosen(project);
        if (project.System == system) return "";
        return system == TrackSystem::Ninco ? "Switch to Ninco track first." : "Switch to Scalextric track first.";
    };
}

std::string ZoomableIn(const Project& project) { return CanZoomIn(project) ? "" : "The view is as close as it gets."; }

/// A row's function that asks nothing.
template <typename Function>
std::function<void(Project&, Prompts&)> Quietly(Function function) {
    return [function](Project& project, Prompts&) { function(project); };
}

void AddCircuitCommands(std::vector<Command>& commands) {
    commands.push_back(
        {"new", "mnuCircuitReinit", "", "&New", "Start a new, empty circuit", "Ctrl+N", false, Always, NewCommand});
    commands.push_back(
        {"load", "mnuCircuitLoad", "", "&Load…", "Open a circuit file", "Ctrl+O", false, Always, LoadCommand});
    commands.push_back(
        {"save", "mnuCircuitSave", "", "&Save…", "Write the circuit to a file", "Ctrl+S", false, Always, SaveCommand});
    commands.push_back({"quit", "mnuQuit", "", "&Quit", "End Pistaro", "Ctrl+Q", false, Always, QuitCommand});
}

void AddBuildingCommands(std::vector<Command>& commands) {
    const auto setMode = [](bool insert) {
        return Quietly([insert](Project& project) { project.InsertMode = insert; });
    };
    commands.push_back({"build", "cmdInsert", "", "Build", "Add new pieces at the end of the track", "Ins", false,
                        OneTrackChosen, setMode(false)});
    commands.push_back({"insert", "cmdInsert", "", "Insert", "Put new pieces in front of the selected one", "Ins",
                        false, OneTrackChosen, setMode(true)});
    commands.push_back({"system", "mnuScalextricNinco", "", "Use Ninco Track", "Offer the other system's pieces",
                        "Ctrl+T", false, Always, Quietly(SwitchTrackSystem)});
    const Catalogue catalogue = InitCatalogue();
    for (std::size_t row = 0; row < CatalogueShapeCount; ++row) {
        const std::string code(catalogue[row].Code);
        commands.push_back({"add " + code, "cmdElement", code, PieceCaption(code),
                            code + ", " + std::string(catalogue[row].LongName), "", false,
                            SystemOffered(catalogue[row].System),
                            Quietly([code](Project& project) { AddPiece(project, code); })});
    }
    for (const std::string_view variant : Variants) {
        const std::string name(Entry(catalogue, FindHeadRow(catalogue, variant)).LongName);
        commands.push_back({"replace " + std::string(variant), "mnu" + std::string(variant), "",
                            std::string(variant) + "  " + name, "Replace the selected piece by this one", "", false,
                            ReplacesSelected(variant),
                            Quietly([variant](Project& project) { ReplaceSelected(project, variant); })});
    }
}

void AddTrackCommands(std::vector<Command>& commands) {
    commands.push_back({"delete", "cmdDelete", "", "Delete", "Take the selected element out of the track", "Del", false,
                        ElementSelected, Quietly(DeleteElement)});
    commands.push_back({"mirror", "mnuMirror", "", "&Mirror", "Swap the left and right curves of the track", "Ctrl+M",
                        false, TrackHasElements, Quietly(MirrorTrack)});
    commands.push_back({"invert", "mnuInvert", "", "&Invert", "Lay the track in the opposite direction", "Ctrl+I",
                        false, TrackHasElements, Quietly(InvertTrack)});
    const auto move = [&](const char* where, const char* control, const char* arrow, const char* key, int right,
                          int up) {
        commands.push_back({std::string("move ") + where, control, "", arrow,
                            std::string("Move ") + where + " by one track width", key, true, Always,
                            Quietly([right, up](Project& project) { MoveTracks(project, right, up); })});
    };
    move("up", "cmdMvUp", "↑", "Ctrl+Up", 0, 1);
    move("down", "cmdMvDn", "↓", "Ctrl+Down", 0, -1);
    move("left", "cmdMvLeft", "←", "Ctrl+Left", -1, 0);
    move("right", "cmdMvRight", "→", "Ctrl+Right", 1, 0);
    move("up-left", "cmdMvUpLeft", "↖", "Ctrl+Home", -1, 1);
    move("up-right", "cmdMvUpRight", "↗", "Ctrl+PgUp", 1, 1);
    move("down-left", "cmdMvDnLeft", "↙", "Ctrl+End", -1, -1);
    move("down-right", "cmdMvDnRight", "↘", "Ctrl+PgDown", 1, -1);
    const auto rotate = [&](const char* where, const char* control, const char* arrow, const char* key,
                            Rotation rotation) {
        commands.push_back({std::string("rotate ") + where, control, "", arrow,
                            std::string("Rotate the track to the ") + where + "; with all tracks chosen, the room", key,
                            true, Always, Quietly([rotation](Project& project) { Rotate(project, rotation); })});
    };
    rotate("left", "cmdRotLeft", "↺", "Ctrl+L", Rotation::Left);
    rotate("right", "cmdRotRight", "↻", "Ctrl+R", Rotation::Right);
    for (int track = 0; track < TrackCount; ++track) {
        const std::string number = std::to_string(track + 1);
        commands.push_back({"track " + number, "optTrack", number, number, "Edit track " + number, "Ctrl+" + number,
                            false, Always, Quietly([track](Project& project) { ChooseTrack(project, track); })});
    }
    commands.push_back({"track all", "optAll", "", "All", "Move all tracks together, and turn the room", "Ctrl+0",
                        false, Always, Quietly(ChooseAllTracks)});
}

void AddViewCommands(std::vector<Command>& commands) {
    commands.push_back(
        {"zoom in", "cmdZoomIn", "", "+", "Show less, but larger", "Ctrl++", true, ZoomableIn, Quietly(ZoomIn)});
    commands.push_back(
        {"zoom out", "cmdZoomOut", "", "−", "Show more, but smaller", "Ctrl+-", true, Always, Quietly(ZoomOut)});
}

} // namespace

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = [] {
        std::vector<Command> rows;
        AddCircuitCommands(rows);
        AddBuildingCommands(rows);
        AddTrackCommands(rows);
        AddViewCommands(rows);
        return rows;
    }();
    return commands;
}

const Command* FindCommand(std::string_view id) {
    const auto found = std::ranges::find(Commands(), id, &Command::Id);
    return found == Commands().end() ? nullptr : &*found;
}

} // namespace pistaro

// Rows of the drawing's own menu, and of how the window looks.
#include "commands/command_groups.h"

#include "commands/row_parts.h"
#include "commands/session.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"

namespace pistaro {

namespace {

std::string RingSelected(const Session& session) {
    std::string whyNot = ElementSelected(session);
    if (!whyNot.empty()) return whyNot;
    const Project& project = session.Project;
    const bool ring = IsRing(session.Catalogue, *EditedTrack(project.Design.Circuit, project.EditState));
    return ring ? "" : "The track is not closed.";
}

/// A choice of the window's looks, on or off.
Command LookRow(const char* id, const char* control, const char* caption, const char* tip, const char* key,
                bool Looks::*look) {
    return {.Id = id,
            .Control = control,
            .Caption = caption,
            .Tip = tip,
            .Key = key,
            .From = Door::WindowOnly,
            .Run = [look](Session& session) { session.Looks.*look ^= true; },
            .IsOn = [look](const Session& session) { return session.Looks.*look; }};
}

} // namespace

void AddCanvasCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "fit",
                    .Control = "cmdFit",
                    .Caption = "Fit",
                    .Tip = "Show all tracks and the room",
                    .Key = "Ctrl+9",
                    .Run = [](Session& session) { FitView(session.Catalogue, session.Project.Design); }});
    rows.push_back({.Id = "select rest",
                    .Control = "mnuSelectRest",
                    .Caption = "Select &All After",
                    .Tip = "Let the selection reach from the selected element to the track's end",
                    .Key = "Ctrl+Shift+A",
                    .WhyNot = ElementSelected,
                    .Run = [](Session& session) { session.Project.EditState.AndAllAfter = true; }});
    rows.push_back(
        {.Id = "mirror rest",
         .Control = "mnuMirrorRest",
         .Caption = "Mirror from &Here",
         .Tip = "Swap the left and right curves from the selected element on",
         .Key = "Ctrl+Shift+M",
         .WhyNot = ElementSelected,
         .Run = [](Session& session) { MirrorFromSelected(session.Project.Design, session.Project.EditState); }});
    rows.push_back({.Id = "start here",
                    .Control = "mnuStartHere",
                    .Caption = "&Start Here",
                    .Tip = "Make the selected element the first of its closed track",
                    .WhyNot = RingSelected,
                    .Run = [](Session& session) {
                        StartAtSelected(session.Catalogue, session.Project.Design, session.Project.EditState);
                    }});
    rows.push_back(LookRow("surface", "mnuSurface", "&Surface",
                           "Draw the tracks as they look, with bed, slots and kerbs", "Ctrl+U", &Looks::Surface));
    rows.push_back(LookRow("legend", "mnuLegend", "&Legend", "Tell what the colours and patterns of the drawing mean",
                           "", &Looks::Legend));
    rows.push_back(LookRow("columns", "mnuColumns", "Side &Columns", "Show the columns at both sides of the drawing",
                           "F9", &Looks::Columns));
}

} // namespace pistaro

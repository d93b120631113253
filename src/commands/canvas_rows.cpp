// Rows of the drawing's own menu, and of how the window looks.
#include "commands/command_groups.h"

#include "commands/background_commands.h"
#include "commands/row_parts.h"
#include "commands/session.h"
#include "commands/side_columns.h"
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

Command ColumnRow(const char* id, const char* control, const char* caption, const char* tip, SideColumnLook column) {
    return {.Id = id,
            .Control = control,
            .Caption = caption,
            .Tip = tip,
            .From = Availability::WindowOnly,
            .Run = [column](Session& session) { FoldColumn(session, column); },
            .IsOn = [column](const Session& session) { return IsColumnShown(session, column); }};
}

} // namespace

void AddCanvasCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "fit",
                    .Control = "cmdFit",
                    .Caption = "Fit",
                    .Tip = "Show all tracks, the room, and the picture under them",
                    .Key = "Ctrl+9",
                    .Run = FitCommand});
    rows.push_back({.Id = "select rest",
                    .Control = "mnuSelectRest",
                    .Caption = "Select &All After",
                    .Tip = "Extend the selection to the end of the track",
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
    rows.push_back(WindowRow("surface", "mnuSurface", "&Surface",
                             "Draw the tracks as they look, with bed, slots and kerbs", "Ctrl+U", &Looks::Surface));
    rows.push_back(WindowRow("legend", "mnuLegend", "&Legend", "Tell what the colours and patterns of the drawing mean",
                             "", &Looks::Legend));
    rows.push_back(WindowRow("lanes", "mnuLanes", "L&anes",
                             "Paint each lane in its own colour, through every change-over", "", &Looks::Lanes));
    rows.push_back(
        WindowRow("suggest", "mnuSuggest", "Su&ggest",
                  "Show the best closing of the track in the drawing as soon as six pieces or fewer would do", "",
                  &Looks::Suggestions));
    rows.push_back(WindowRow("columns", "mnuColumns", "Side &Columns", "Show the columns at both sides of the drawing",
                             "F9", &Looks::Columns));
    rows.push_back(ColumnRow("fold pieces", "cmdFoldPieces", "Pieces",
                             "Fold the pieces away, or unfold them; F9 does so with both columns",
                             &Looks::PieceColumn));
    rows.push_back(ColumnRow("fold track", "cmdFoldTrack", "Track and elements",
                             "Fold track and elements away, or unfold them; F9 does so with both columns",
                             &Looks::TrackColumn));
}

} // namespace pistaro

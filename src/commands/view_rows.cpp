// Rows about the view and what lies under the circuit.
#include "commands/command_groups.h"

#include "commands/background_commands.h"
#include "commands/picture_commands.h"
#include "commands/row_parts.h"
#include "commands/session.h"
#include "editor/view_commands.h"

namespace pistaro {

namespace {

std::string ZoomableIn(const Session& session) {
    return CanZoomIn(session.Project.Design.View) ? "" : "The view is as close as it gets.";
}

std::string HasBackground(const Session& session) {
    return session.Background ? "" : "There is no picture behind the circuit.";
}

std::string HasScaledBackground(const Session& session) {
    return session.Project.Background ? HasWindows(session) : "No picture lies under the circuit at its true size.";
}

} // namespace

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
                    .From = Availability::WindowOnly,
                    .Run = [](Session&) {}}); // the redraw follows every command
    rows.push_back({.Id = "numbers",
                    .Control = "chkNumbers",
                    .Caption = "&Numbers",
                    .Tip = "Show each element's number in the drawing",
                    .From = Availability::WindowOnly,
                    .Run = [](Session& session) { session.Project.EditState.ShowNumbers ^= true; },
                    .IsOn = [](const Session& session) { return session.Project.EditState.ShowNumbers; }});
}

void AddBackgroundCommands(std::vector<Command>& rows) {
    rows.push_back({.Id = "background select",
                    .Control = "mnuBackgroundSelect",
                    .Caption = "Select &Background…",
                    .Tip = "Show a picture behind the circuit, at the window's size: it does not zoom, and is not kept",
                    .From = Availability::WindowOnly,
                    .Run = SelectBackgroundCommand});
    rows.push_back({.Id = "background clear",
                    .Control = "mnuBackgroundClear",
                    .Caption = "Clea&r Background",
                    .Tip = "Remove the picture behind the circuit",
                    .From = Availability::WindowOnly,
                    .WhyNot = HasBackground,
                    .Run = [](Session& session) { session.Background.reset(); }});
    rows.push_back(
        {.Id = "background import",
         .Control = "mnuBackgroundImport",
         .Caption = "Import Background &to Scale…",
         .Tip = "Put a floor plan under the circuit at its true size: it zooms, and is kept with the circuit",
         .From = Availability::WindowOnly,
         .WhyNot = HasWindows,
         .Run = ImportBackgroundCommand});
    rows.push_back({.Id = "background place",
                    .Control = "mnuBackgroundPlace",
                    .Caption = "Place Backgroun&d…",
                    .Tip = "Move, turn or scale the picture that lies under the circuit at its true size",
                    .From = Availability::WindowOnly,
                    .WhyNot = HasScaledBackground,
                    .Run = PlaceBackgroundCommand});
    Command drag =
        WindowRow("background move", "mnuBackgroundMove", "&Move Background",
                  "Drag, turn or fade the picture under the circuit in the drawing itself", "", Panel::Picture);
    drag.WhyNot = HasScaledBackground;
    rows.push_back(std::move(drag));
    rows.push_back({.Id = "background remove",
                    .Control = "mnuBackgroundRemove",
                    .Caption = "Remo&ve Background to Scale",
                    .Tip = "Remove the picture that lies under the circuit at its true size",
                    .From = Availability::WindowOnly,
                    .WhyNot = HasScaledBackground,
                    .Run = [](Session& session) { SetBackground(session, nullptr); }});
}

} // namespace pistaro

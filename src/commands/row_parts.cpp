#include "commands/row_parts.h"

#include "commands/session.h"

namespace pistaro {

namespace {

/// "C160", "4 C160".
std::string SoMany(const Session& session, const std::string& product) {
    return (session.Times > 1 ? std::to_string(session.Times) + " " : "") + product;
}

} // namespace

std::string OneTrackChosen(const Session& session) {
    return session.Project.EditState.ShowsAllTracks() ? "Choose a single track first." : "";
}

std::string TrackHasElements(const Session& session) {
    const Track* const track = EditedTrack(session.Project.Design.Circuit, session.Project.EditState);
    if (track == nullptr) return OneTrackChosen(session);
    return track->ElementCodes.empty() ? "The track is empty." : "";
}

std::string ElementSelected(const Session& session) {
    std::string whyNot = TrackHasElements(session);
    if (!whyNot.empty()) return whyNot;
    return session.Project.EditState.SelectedElement() < 0 ? "Select an element first." : "";
}

std::string HasWindows(const Session& session) {
    return session.Windows == nullptr ? "Available in the designer only." : "";
}

std::string NoJobRuns(const Session& session) {
    const Job* const job = session.CurrentJob();
    return job == nullptr ? "" : job->IsUnderWay;
}

std::string MenuText(const std::string& words) {
    std::string text;
    for (const char c : words)
        text += c == '&' ? "&&" : std::string(1, c);
    return text;
}

std::string StepOfLaying(const Session& session, const std::string& product) {
    const EditState& edit = session.Project.EditState;
    if (edit.InsertMode && edit.SelectedElement() >= 0) return StepOfInserting(session, product);
    return "Add " + SoMany(session, product);
}

std::string StepOfInserting(const Session& session, const std::string& product) {
    return "Insert " + SoMany(session, product);
}

WindowWork::WindowWork(void (Windows::*show)()) : Run([show](Session& session) { (session.Windows->*show)(); }) {}

WindowWork::WindowWork(Panel panel)
    : Run([panel](Session& session) { session.Windows->TogglePanel(panel); }), IsOn([panel](const Session& session) {
          return session.Windows != nullptr && session.Windows->IsPanelShown(panel);
      }) {}

WindowWork::WindowWork(bool Looks::*look)
    : Run([look](Session& session) { session.Looks.*look ^= true; }),
      IsOn([look](const Session& session) { return session.Looks.*look; }) {}

Command WindowRow(const char* id, const char* control, const char* caption, const char* tip, const char* key,
                  WindowWork work) {
    return {.Id = id,
            .Control = control,
            .Caption = caption,
            .Tip = tip,
            .Key = key,
            .From = Availability::WindowOnly,
            .WhyNot = HasWindows,
            .Run = std::move(work.Run),
            .IsOn = std::move(work.IsOn)};
}

} // namespace pistaro

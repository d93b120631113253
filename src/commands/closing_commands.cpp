#include "commands/closing_commands.h"

#include "platform/fault.h"

#include <algorithm>

namespace pistaro {

void LaySuggestion(Session& session, int number) {
    const Project& project = session.Project;
    if (project.EditState.ShowsAllTracks())
        throw Fault("Refused", "all tracks are chosen, and one at a time can be closed");
    ClosingOptions options;
    options.Limit = std::max(options.Limit, number);
    const Closings closings = CloseTrack(session.Closings, session.Catalogue, project.Design, project.Stock,
                                         project.EditState.CurrentTrack, options, {});
    const auto found = static_cast<int>(closings.Suggestions.size());
    if (found == 0) throw Fault("Refused", closings.WhyNone);
    if (number > found) throw Fault("Refused", "there are only " + std::to_string(found) + " suggestions");
    LaySuggestion(session, closings.Suggestions[static_cast<std::size_t>(number - 1)]);
}

void LaySuggestion(Session& session, const Suggestion& suggestion) {
    session.Work([&] {
        EditState& edit = session.Project.EditState;
        Apply(suggestion.Edit, *EditedTrack(session.Project.Design.Circuit, edit));
        edit.Select(suggestion.Edit.At + suggestion.Count() - 1);
        edit.DataChanged = true;
    });
}

} // namespace pistaro

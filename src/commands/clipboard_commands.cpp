#include "commands/clipboard_commands.h"

#include "commands/export_circuit.h"
#include "editor/piece_list.h"
#include "editor/status_text.h"
#include "editor/track_editing.h"
#include "layout/track_gap.h"

#include <algorithm>
#include <optional>

namespace pistaro {

namespace {

std::string PieceListOf(const Session& session) {
    const Circuit& circuit = session.Project.Design.Circuit;
    if (const Track* const track = EditedTrack(circuit, session.Project.EditState))
        return PieceListText(track->ElementCodes);
    std::string text;
    for (const Track& track : circuit.Tracks) {
        if (!track.ElementCodes.empty()) text += (text.empty() ? "" : "\n") + PieceListText(track.ElementCodes);
    }
    return text;
}

/// A track without pieces, from 0; nothing where each has some.
std::optional<int> EmptyTrack(const Circuit& circuit) {
    const auto empty =
        std::ranges::find_if(circuit.Tracks, [](const Track& track) { return track.ElementCodes.empty(); });
    if (empty == circuit.Tracks.end()) return std::nullopt;
    return static_cast<int>(empty - circuit.Tracks.begin());
}

/// After the last piece of a closed track others would lie over its first ones: an empty track is offered instead.
/// False where the user wants neither.
bool LeavesClosedTrack(Session& session) {
    const Circuit& circuit = session.Project.Design.Circuit;
    EditState& edit = session.Project.EditState;
    const Track& track = *EditedTrack(circuit, edit);
    const auto empty = EmptyTrack(circuit);
    if (!empty || track.ElementCodes.empty() || !IsClosed(GapOf(session.Catalogue, track))) return true;
    const std::string question =
        "Track " + std::to_string(edit.CurrentTrack + 1) +
        " is closed: pieces at its end would lie over its first ones. They are laid on track " +
        std::to_string(*empty + 1) + ", which is empty.";
    if (session.Prompts.Ask(question, Buttons::OkCancel) != Answer::Ok) return false;
    ChooseTrack(edit, *empty);
    return true;
}

} // namespace

void CopyCommand(Session& session) {
    constexpr int pixels = 1600; // wide; enough for a screen
    ExportOptions options;
    options.Parts.Track = session.Project.EditState.CurrentTrack;
    options.PixelWidth = pixels;
    const auto bytes = [&](ExportFormat format) {
        return ExportBytes(session.Catalogue, session.Project, format, options);
    };
    session.Windows->PutOnClipboard({PieceListOf(session), bytes(ExportFormat::Png), bytes(ExportFormat::Svg)});
}

void PasteCommand(Session& session) {
    const std::vector<std::string> codes = ParsePieceList(session.Catalogue, session.Windows->ClipboardText());
    if (!LeavesClosedTrack(session)) return;
    AppendPieces(session.Project.Design, session.Project.EditState, codes);
}

} // namespace pistaro

#include "commands/clipboard_commands.h"

#include "commands/export_circuit.h"
#include "editor/piece_list.h"
#include "editor/status_text.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "layout/ground.h"
#include "layout/track_gap.h"
#include "text/count_text.h"

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
bool LeavesClosedTrack(Session& session, std::size_t pieces) {
    const Circuit& circuit = session.Project.Design.Circuit;
    EditState& edit = session.Project.EditState;
    const Track& track = *EditedTrack(circuit, edit);
    const auto empty = EmptyTrack(circuit);
    if (!empty || track.ElementCodes.empty() || !IsClosed(GapOf(session.Catalogue, track))) return true;
    const std::string question = "Track " + std::to_string(edit.CurrentTrack + 1) +
                                 " is closed: pieces at its end would lie over its first ones. " +
                                 CountText(pieces, "piece") + (pieces == 1 ? " is" : " are") + " laid on track " +
                                 std::to_string(*empty + 1) + ", which is empty.";
    if (session.Prompts.Ask(question, Buttons::OkCancel) != Answer::Ok) return false;
    ChooseTrack(edit, *empty);
    return true;
}

/// "3 pieces of track 1"
std::string WhatIsCopied(const Session& session) {
    const Circuit& circuit = session.Project.Design.Circuit;
    if (const Track* const track = EditedTrack(circuit, session.Project.EditState))
        return CountText(track->ElementCodes.size(), "piece") + " of track " +
               std::to_string(session.Project.EditState.CurrentTrack + 1);
    std::size_t count = 0;
    for (const Track& track : circuit.Tracks)
        count += track.ElementCodes.size();
    return CountText(count, "piece") + " of all tracks";
}

/// Moves the view to the track's pieces from that one on; shows everything where they need more room than it has.
void ShowPieces(const Catalogue& catalogue, Design& design, const Track& track, int first) {
    std::optional<GroundBox> laid;
    WalkTrack(catalogue, track, [&](int index, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr || index < first) return;
        const GroundBox ground = GroundOf(*placement).Box;
        laid = laid ? laid->Joined(ground) : ground;
    });
    if (!laid) return;
    if (std::max(laid->Right - laid->Left, laid->Top - laid->Bottom) > double{design.View.Width})
        return FitView(catalogue, design);
    constexpr double margin = 10; // cm
    FollowTo(design.View, laid->Grown(margin), ShownRectangle(design.View));
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
    session.Windows->TellBriefly("Copied " + WhatIsCopied(session) + ": the list as text, and a picture of it");
}

void PasteCommand(Session& session) {
    const std::vector<std::string> codes = ParsePieceList(session.Catalogue, session.Windows->ClipboardText());
    if (!LeavesClosedTrack(session, codes.size())) return;
    Design design = session.Project.Design;
    EditState edit = session.Project.EditState;
    Track& track = *EditedTrack(design.Circuit, edit);
    const int first = track.ElementLastIndex() + 1;
    AppendPieces(design, edit, codes);
    ShowPieces(session.Catalogue, design, track, first);
    session.Project.Design = std::move(design);
    session.Project.EditState = std::move(edit);
    session.NameStep("Paste");
    session.Windows->TellBriefly("Pasted " + CountText(codes.size(), "piece") +
                                 (first == 0 ? " onto" : " at the end of") + " track " +
                                 std::to_string(session.Project.EditState.CurrentTrack + 1));
}

} // namespace pistaro

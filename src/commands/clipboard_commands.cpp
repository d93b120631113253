#include "commands/clipboard_commands.h"

#include "commands/export_circuit.h"
#include "editor/piece_list.h"

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
    AppendPieces(session.Project.Design, session.Project.EditState,
                 ParsePieceList(session.Catalogue, session.Windows->ClipboardText()));
}

} // namespace pistaro

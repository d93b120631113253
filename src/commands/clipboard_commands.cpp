#include "commands/clipboard_commands.h"

#include "commands/export_circuit.h"
#include "editor/free_floor.h"
#include "editor/piece_list.h"
#include "editor/read_piece_list.h"
#include "editor/status_text.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "layout/ground.h"
#include "layout/room_fit.h"
#include "layout/track_gap.h"
#include "platform/fault.h"
#include "text/count_text.h"

#include <algorithm>
#include <optional>

namespace pistaro {

namespace {

constexpr const char* WhatPasteTakes =
    "Paste takes a list of pieces such as \"C160 x3, C151L x4\", or one code a line.";

/// Which elements of the current track are copied: several that are selected, else all.
ElementRun CopiedRun(const Track& track, const EditState& edit) {
    const ElementRun selected = edit.SelectedRun(track.ElementLastIndex());
    return selected.Count > 1 ? selected : ElementRun{0, track.ElementLastIndex() + 1};
}

std::string PieceListOf(const Session& session) {
    const Circuit& circuit = session.Project.Design.Circuit;
    if (const Track* const track = EditedTrack(circuit, session.Project.EditState)) {
        const ElementRun run = CopiedRun(*track, session.Project.EditState);
        const auto first = track->ElementCodes.begin() + run.First;
        return PieceListText({first, first + run.Count});
    }
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
                                 " is closed: pieces at its end would lie over its first ones. Lay " +
                                 (pieces == 1 ? "the piece" : "the " + CountText(pieces, "piece")) + " on track " +
                                 std::to_string(*empty + 1) + " instead, which is empty?";
    const std::string action = "Lay on &Track " + std::to_string(*empty + 1);
    if (session.Prompts.AskWhether(question, action) != Answer::Ok) return false;
    ChooseTrack(edit, *empty);
    return true;
}

/// "3 pieces of track 1: the list as text, and a picture of it", "pieces 4 to 6 of track 1: ...".
std::string WhatIsCopied(const Session& session) {
    const Circuit& circuit = session.Project.Design.Circuit;
    const EditState& edit = session.Project.EditState;
    const char* const forms = ": the list as text, and a picture of ";
    if (const Track* const track = EditedTrack(circuit, edit)) {
        const std::string name = " of track " + std::to_string(edit.CurrentTrack + 1);
        const ElementRun run = CopiedRun(*track, edit);
        if (run.Count == track->ElementLastIndex() + 1)
            return CountText(track->ElementCodes.size(), "piece") + name + forms + "it";
        const int last = run.First + run.Count - 1;
        return "pieces " + std::to_string(run.First) + " to " + std::to_string(last) + name + forms + "them";
    }
    std::size_t count = 0;
    for (const Track& track : circuit.Tracks)
        count += track.ElementCodes.size();
    return CountText(count, "piece") + " of all tracks" + forms + "it";
}

/// Joins the ground of the track's pieces from that one on to what there is already.
void AddGround(std::optional<GroundBox>& laid, const Catalogue& catalogue, const Track& track, int first) {
    WalkTrack(catalogue, track, [&](int index, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr || index < first) return;
        const GroundBox ground = GroundOf(*placement).Box;
        laid = laid ? laid->Joined(ground) : ground;
    });
}

/// Moves the view to the track's pieces from that one on, and where they are all of it, to those of the other tracks,
/// too; shows everything where that needs more room than the view has.
void ShowPieces(const Catalogue& catalogue, Design& design, const Track& track, int first) {
    std::optional<GroundBox> laid;
    AddGround(laid, catalogue, track, first);
    if (!laid) return;
    if (first == 0) {
        for (const Track& other : design.Circuit.Tracks)
            AddGround(laid, catalogue, other, 0);
    }
    if (std::max(laid->Right - laid->Left, laid->Top - laid->Bottom) > double{design.View.Width})
        return FitView(catalogue, design);
    constexpr double margin = 10; // cm
    FollowTo(design.View, laid->Grown(margin), ShownRectangle(design.View));
}

/// "; 3 of them lie outside the room" of the track's pieces from that one on; empty where none does.
std::string OutsideText(const Catalogue& catalogue, const Design& design, const Track& track, int first) {
    const RoomFit room(design.Room);
    int pieces = 0;
    int outside = 0;
    WalkTrack(catalogue, track, [&](int index, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr || index < first) return;
        ++pieces;
        outside += room.Holds(GroundOf(*placement)) ? 0 : 1;
    });
    if (outside == 0) return {};
    if (pieces == 1) return "; it lies outside the room";
    if (outside == pieces) return "; they lie outside the room";
    return "; " + std::to_string(outside) + (outside == 1 ? " of them lies" : " of them lie") + " outside the room";
}

/// How an element's entry lies.
float HeadingOf(const Catalogue& catalogue, const Track& track, int element) {
    float heading = track.TrackStartHeading;
    WalkTrack(catalogue, track, [&](int index, const PiecePlacement*, const BuildCursor& entry) {
        if (index == element) heading = entry.CursorHeading;
    });
    return heading;
}

std::string TrackLimit() { return "a track holds at most " + std::to_string(MaxElements) + " pieces."; }

/// Its user agrees to lay what of a list is understood, or all of it is.
bool WantsTheRest(const Session& session, const PieceListReading& list) {
    if (list.NotUnderstood.empty()) return true;
    const std::size_t count = list.Codes.size();
    const std::string hands = list.HandText();
    const std::string question = "Not understood: " + list.StrangeText() + ".\n" +
                                 (hands.empty() ? "" : hands + ".\n") + "\nPaste the " +
                                 (count == 1 ? "piece that is?" : CountText(count, "piece") + " that are?");
    return session.Prompts.AskWhether(question, "&Paste the Rest") == Answer::Ok;
}

/// The pieces that the clipboard's text names; none where its user does not want them. A fault says what would have
/// been a list.
std::vector<std::string> PastedPieces(const Session& session, const std::string& text) {
    const char* const nothing = "Nothing was pasted";
    const PieceListReading list = ReadPieceList(session.Catalogue, text);
    if (list.TooMany) throw Fault(nothing, TrackLimit());
    if (list.Codes.empty()) {
        const std::string hands = list.HandText();
        if (list.HasBeyond && list.NotUnderstood.size() == 1)
            throw Fault(nothing, list.StrangeText() + ": " + TrackLimit());
        const std::string why = list.NotUnderstood.empty() ? "no pieces are on the clipboard"
                                                           : "no pieces are understood in " + list.StrangeText();
        throw Fault(nothing, why + ".\n" + (hands.empty() ? "" : hands + ".\n") + WhatPasteTakes);
    }
    return WantsTheRest(session, list) ? list.Codes : std::vector<std::string>();
}

/// Turns what was copied as it was, and brings the track to where it lies on no other.
void FindFloor(const Session& session, Design& design, int track, const std::string& list) {
    Track& laid = design.Circuit.Tracks[static_cast<std::size_t>(track)];
    if (list == session.Copied.List) laid.TrackStartHeading = session.Copied.Heading;
    const BuildCursor start = FreeStart(session.Catalogue, design, track);
    laid.TrackStartX = start.CursorX;
    laid.TrackStartY = start.CursorY;
}

} // namespace

void CopyCommand(Session& session) {
    constexpr int pixels = 1600; // wide; enough for a screen
    ExportOptions options;
    const EditState& edit = session.Project.EditState;
    options.Parts.Track = edit.CurrentTrack;
    options.PixelWidth = pixels;
    options.Parts.StockColours = false; // whoever it is for has his own pieces
    const std::string list = PieceListOf(session);
    session.Copied = CopiedPieces();
    if (const Track* const track = EditedTrack(session.Project.Design.Circuit, edit)) {
        options.Parts.Run = CopiedRun(*track, edit);
        session.Copied = {list, HeadingOf(session.Catalogue, *track, options.Parts.Run->First)};
    }
    const auto bytes = [&](ExportFormat format) {
        return ExportBytes(session.Catalogue, session.Project, format, options);
    };
    session.Windows->PutOnClipboard({list, bytes(ExportFormat::Png), bytes(ExportFormat::Svg)});
    session.Windows->TellBriefly("Copied " + WhatIsCopied(session));
}

void PasteCommand(Session& session) {
    const std::string list = session.Windows->ClipboardText();
    const std::vector<std::string> codes = PastedPieces(session, list);
    if (codes.empty() || !LeavesClosedTrack(session, codes.size())) return;
    Design design = session.Project.Design;
    EditState edit = session.Project.EditState;
    Track& track = *EditedTrack(design.Circuit, edit);
    const int first = track.ElementLastIndex() + 1;
    AppendPieces(design, edit, codes);
    if (codes.size() > 1) edit.RunFrom = first;
    if (first == 0) FindFloor(session, design, edit.CurrentTrack, list);
    ShowPieces(session.Catalogue, design, track, first);
    session.Project.Design = std::move(design);
    session.Project.EditState = std::move(edit);
    session.NameStep("Paste");
    const Design& laid = session.Project.Design;
    const EditState& now = session.Project.EditState;
    session.Windows->TellBriefly("Pasted " + CountText(codes.size(), "piece") +
                                 (first == 0 ? " onto" : " at the end of") + " track " +
                                 std::to_string(now.CurrentTrack + 1) +
                                 OutsideText(session.Catalogue, laid, *EditedTrack(laid.Circuit, now), first));
}

} // namespace pistaro

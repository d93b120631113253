#include "editor/building.h"

#include "editor/palette_pieces.h"
#include "platform/fault.h"

#include <algorithm>

namespace pistaro {

namespace {

/// After a conversion piece that follows Ninco track, Scalextric is what is wanted next.
void FollowConversion(const Catalogue& catalogue, const Track& track, EditState& edit, const std::string& code) {
    const CatalogueEntry* const piece = catalogue.Find(code);
    if (piece == nullptr || !piece->JoinsSystems() || track.ElementLastIndex() < 1) return;
    const std::string& beforeLast = track.ElementCodes[track.ElementCodes.size() - 2];
    if (IsOfSystem(beforeLast, TrackSystem::Ninco)) SwitchTrackSystem(edit);
}

} // namespace

void RequireRoom(const Track& track, int pieces) {
    const std::size_t all = track.ElementCodes.size() + static_cast<std::size_t>(pieces);
    if (all > MaxElements)
        throw SubscriptOutOfRange("a track holds at most " + std::to_string(MaxElements) + " elements");
}

void AddElement(Design& design, EditState& edit, const std::string& code) {
    Track* const track = EditedTrack(design.Circuit, edit);
    if (track == nullptr) return;
    RequireRoom(*track, 1);
    const int selected = edit.SelectedElement();
    if (edit.InsertMode && selected >= 0) {
        track->ElementCodes.insert(track->ElementCodes.begin() + selected, code);
        edit.Select(selected + 1);
    } else {
        track->ElementCodes.push_back(code);
        edit.Select(track->ElementLastIndex());
    }
    edit.DataChanged = true;
}

void AddPiece(const Catalogue& catalogue, Design& design, EditState& edit, const std::string& code, int times) {
    const Track* const track = EditedTrack(design.Circuit, edit);
    if (track == nullptr) return;
    RequireRoom(*track, times);
    for (int i = 0; i < times; ++i) {
        AddElement(design, edit, code);
        FollowConversion(catalogue, *track, edit, code);
    }
}

void InsertBeforeSelected(const Catalogue& catalogue, Design& design, EditState& edit, const std::string& code,
                          int times) {
    EditState inserting = edit;
    inserting.InsertMode = true;
    AddPiece(catalogue, design, inserting, code, times);
    inserting.InsertMode = edit.InsertMode;
    edit = inserting;
}

int OwnedLessUsedPieces(const Catalogue& catalogue, const Circuit& circuit, const Stock& stock, std::string_view code) {
    const CatalogueEntry* const piece = catalogue.Find(code);
    if (piece == nullptr) return 0;
    return LeftInBox(catalogue, CountUsed(catalogue, circuit), stock, catalogue[piece->ShapeIndex]);
}

int RemainingPieces(const Catalogue& catalogue, const Circuit& circuit, const Stock& stock, std::string_view code) {
    return std::max(0, OwnedLessUsedPieces(catalogue, circuit, stock, code));
}

std::string PieceCaption(std::string_view code) {
    std::string_view caption = ProductCode(code);
    if (caption.starts_with('N')) caption.remove_prefix(1);
    return std::string(caption);
}

void SwitchTrackSystem(EditState& edit) {
    edit.System = edit.System == TrackSystem::Scalextric ? TrackSystem::Ninco : TrackSystem::Scalextric;
}

bool IsVariantOfSelected(const Catalogue& catalogue, const Circuit& circuit, const EditState& edit,
                         std::string_view variant) {
    const CatalogueEntry* const selected = catalogue.Find(SelectedCode(circuit, edit));
    return selected != nullptr && selected->ShapeIndex == catalogue[catalogue.FindHeadRow(variant)].ShapeIndex;
}

void ReplaceSelected(const Catalogue& catalogue, Design& design, EditState& edit, std::string_view variant) {
    const int selected = edit.SelectedElement();
    if (selected < 0) return;
    std::string& code = EditedTrack(design.Circuit, edit)->ElementCodes[static_cast<std::size_t>(selected)];
    const bool hasHands = catalogue.FindRow(variant) < 0;
    const char* const hand = !hasHands ? "" : code.ends_with('R') ? "R" : "L";
    code = std::string(variant) + hand;
    edit.DataChanged = true;
}

bool FitsSelected(const Catalogue& catalogue, const Circuit& circuit, const EditState& edit, std::string_view special) {
    const std::string selected = SelectedCode(circuit, edit);
    const CatalogueEntry* const there = catalogue.Find(selected);
    const CatalogueEntry* const piece = catalogue.Find(special);
    return there != nullptr && piece != nullptr && selected != special && there->ShapeIndex == piece->ShapeIndex &&
           Hand(selected) == Hand(special);
}

void LaySpecial(const Catalogue& catalogue, Design& design, EditState& edit, const std::string& special, int times) {
    if (times == 1 && FitsSelected(catalogue, design.Circuit, edit, special))
        ReplaceSelected(catalogue, design, edit, ProductCode(special));
    else
        AddPiece(catalogue, design, edit, special, times);
}

void OfferOnlySystem(const Catalogue& catalogue, const Circuit& circuit, EditState& edit) {
    int scalextric = 0;
    int ninco = 0;
    for (const Track& track : circuit.Tracks) {
        for (const std::string& code : track.ElementCodes) {
            const CatalogueEntry* const piece = catalogue.Find(code);
            if (piece != nullptr) ++(piece->System == TrackSystem::Ninco ? ninco : scalextric);
        }
    }
    if (scalextric > 0 && ninco == 0) edit.System = TrackSystem::Scalextric;
    if (ninco > 0 && scalextric == 0) edit.System = TrackSystem::Ninco;
}

} // namespace pistaro

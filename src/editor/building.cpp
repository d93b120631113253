// Commands that lay or replace single pieces.
#include "editor/building.h"

#include "catalogue/special_pieces.h"
#include "platform/fault.h"

#include <algorithm>

namespace pistaro {

namespace {

int ShapeOf(const Catalogue& catalogue, int row) { return Entry(catalogue, row).ShapeIndex; }

} // namespace

void AddElement(Project& project, const std::string& code) {
    Track* const track = project.Layout.Current();
    if (track == nullptr) return;
    if (track->ElementCodes.size() >= MaxElements) {
        throw SubscriptOutOfRange("a track holds at most " + std::to_string(MaxElements) + " elements");
    }
    if (project.InsertMode && track->CurrentElement >= 0) {
        track->ElementCodes.insert(track->ElementCodes.begin() + track->CurrentElement, code);
        ++track->CurrentElement;
    } else {
        track->ElementCodes.push_back(code);
        track->CurrentElement = track->ElementLastIndex();
    }
    project.DataChanged = true;
}

void AddPiece(Project& project, const std::string& code) {
    AddElement(project, code);
    const Track* const track = project.Layout.Current();
    if (track == nullptr || !IsConversionPiece(code) || track->ElementLastIndex() < 1) return;
    const std::string& beforeLast = track->ElementCodes[track->ElementCodes.size() - 2];
    if (IsOfSystem(beforeLast, TrackSystem::Ninco)) SwitchTrackSystem(project);
}

int OwnedLessUsedPieces(const Project& project, std::string_view code) {
    const Catalogue& catalogue = project.Pieces;
    const int row = FindRow(catalogue, code);
    if (row < 0) return 0;
    int remaining = 0;
    for (int product = 0; product < CatalogueCount; ++product) {
        if (!IsHeadRow(catalogue, product) || ShapeOf(catalogue, product) != ShapeOf(catalogue, row)) continue;
        const CatalogueEntry& entry = Entry(catalogue, product);
        remaining += entry.OwnedCount - entry.UsedCount;
    }
    return remaining;
}

int RemainingPieces(const Project& project, std::string_view code) {
    return std::max(0, OwnedLessUsedPieces(project, code));
}

std::string PieceCaption(std::string_view code) {
    std::string_view caption = ProductCode(code);
    if (caption.starts_with('N')) caption.remove_prefix(1);
    return std::string(caption);
}

void SwitchTrackSystem(Project& project) {
    project.System = project.System == TrackSystem::Scalextric ? TrackSystem::Ninco : TrackSystem::Scalextric;
}

bool IsVariantOfSelected(const Project& project, std::string_view variant) {
    const Catalogue& catalogue = project.Pieces;
    const int selected = FindRow(catalogue, SelectedCode(project.Layout));
    return selected >= 0 && ShapeOf(catalogue, selected) == ShapeOf(catalogue, FindHeadRow(catalogue, variant));
}

void ReplaceSelected(Project& project, std::string_view variant) {
    Track* const track = project.Layout.Current();
    if (track == nullptr || track->CurrentElement < 0) return;
    std::string& code = track->ElementCodes[static_cast<std::size_t>(track->CurrentElement)];
    const bool hasHands = FindRow(project.Pieces, variant) < 0;
    const char* const hand = !hasHands ? "" : code.ends_with('R') ? "R" : "L";
    code = std::string(variant) + hand;
    project.DataChanged = true;
}

} // namespace pistaro

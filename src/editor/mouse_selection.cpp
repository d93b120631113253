#include "editor/mouse_selection.h"

#include "editor/building.h"
#include "editor/track_editing.h"
#include "layout/placement.h"
#include "platform/fault.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace pistaro {

namespace {

/// Distances from the click to each element's label. An unknown code leaves the label of the piece before it.
int NearestElement(const Catalogue& catalogue, const Track& track, WorldPoint click) {
    std::array<float, MostClickableElements> distances{};
    float distance = std::numeric_limits<float>::max();
    WalkTrack(catalogue, track, [&](int index, const PiecePlacement* placement, const BuildCursor&) {
        if (placement != nullptr) {
            distance = static_cast<float>(
                std::hypot(double{click.X} - placement->Label.X, double{click.Y} - placement->Label.Y));
        }
        distances[static_cast<std::size_t>(index)] = distance;
    });
    auto* const end = distances.begin() + track.ElementCodes.size();
    return static_cast<int>(std::min_element(distances.begin(), end) - distances.begin());
}

/// The system of the pieces that follow on an element. A conversion piece leads to the system it was not entered from.
TrackSystem SystemAfter(const Catalogue& catalogue, const Track& track, int element, TrackSystem offered) {
    const auto codeAt = [&](int index) -> std::string_view {
        return index < 0 ? std::string_view() : track.ElementCodes[static_cast<std::size_t>(index)];
    };
    const std::string_view code = codeAt(element);
    const CatalogueEntry* const piece = catalogue.Find(code);
    if (piece != nullptr && piece->JoinsSystems()) {
        return IsOfSystem(codeAt(element - 1), TrackSystem::Ninco) ? TrackSystem::Scalextric : TrackSystem::Ninco;
    }
    if (IsOfSystem(code, TrackSystem::Scalextric)) return TrackSystem::Scalextric;
    if (IsOfSystem(code, TrackSystem::Ninco)) return TrackSystem::Ninco;
    return offered;
}

void SelectAndOffer(const Catalogue& catalogue, const Track& track, EditState& edit, int element) {
    edit.Select(element);
    if (element >= 1 && SystemAfter(catalogue, track, element - 1, edit.System) != edit.System) SwitchTrackSystem(edit);
}

} // namespace

void SelectNearestElement(const Catalogue& catalogue, const Circuit& circuit, EditState& edit, WorldPoint click) {
    const Track* const track = EditedTrack(circuit, edit);
    if (track == nullptr || track->ElementCodes.empty()) return;
    if (track->ElementCodes.size() > MostClickableElements) {
        throw SubscriptOutOfRange("a track of more than " + std::to_string(MostClickableElements) +
                                  " elements cannot be clicked; choose the element in the list");
    }
    SelectAndOffer(catalogue, *track, edit, NearestElement(catalogue, *track, click));
}

void SelectPiece(const Catalogue& catalogue, const Circuit& circuit, EditState& edit, const PieceAddress& piece) {
    if (piece.Track != edit.CurrentTrack) ChooseTrack(edit, piece.Track);
    SelectAndOffer(catalogue, *EditedTrack(circuit, edit), edit, piece.Element);
}

void SelectAt(const Catalogue& catalogue, const Circuit& circuit, EditState& edit, const PickMap& pieces,
              WorldPoint click) {
    if (edit.ShowsAllTracks()) return;
    if (const auto piece = pieces.OnlyPieceAt(click)) {
        SelectPiece(catalogue, circuit, edit, *piece);
    } else {
        SelectNearestElement(catalogue, circuit, edit, click);
    }
}

} // namespace pistaro

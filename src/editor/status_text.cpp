#include "editor/status_text.h"

#include "catalogue/track_geometry.h"
#include "layout/built_lanes.h"
#include "layout/track_gap.h"
#include "model/length_text.h"
#include "text/fixed_text.h"
#include "text/number_text.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr const char* Between = " · ";

std::string PieceCount(std::size_t pieces) {
    return pieces == 0 ? "empty" : pieces == 1 ? "1 piece" : std::to_string(pieces) + " pieces";
}

double DegreesOf(const TrackGap& gap) { return std::fabs(gap.Angle) * 180 / PiValue; }

std::string TrackText(const Catalogue& catalogue, const Project& project, const Track& track) {
    std::string text =
        "Track " + std::to_string(project.EditState.CurrentTrack + 1) + Between + PieceCount(track.ElementCodes.size());
    if (track.ElementCodes.empty()) return text;
    return text + Between + GapText(GapOf(catalogue, track), project.Preferences.Units);
}

std::string AllTracksText(const Circuit& circuit) {
    std::size_t pieces = 0;
    for (const Track& track : circuit.Tracks)
        pieces += track.ElementCodes.size();
    return std::string("All tracks") + Between + PieceCount(pieces);
}

} // namespace

bool IsClosed(const TrackGap& gap) {
    constexpr double mostCm = 0.05;
    constexpr double mostDegrees = 0.1;
    return gap.Distance <= mostCm && DegreesOf(gap) <= mostDegrees;
}

std::string GapText(const TrackGap& gap, const Units& units) {
    if (IsClosed(gap)) return "closed";
    const std::string angle = FixedText(DegreesOf(gap), 1);
    return "gap " + LengthText(gap.Distance, units) + (angle == "0.0" ? "" : ", " + angle + "°");
}

std::string StatusText(const Catalogue& catalogue, const Project& project) {
    const EditState& edit = project.EditState;
    const Track* const track = EditedTrack(project.Design.Circuit, edit);
    std::string text = track != nullptr ? TrackText(catalogue, project, *track) : AllTracksText(project.Design.Circuit);
    if (edit.InsertMode && track != nullptr) text += std::string(Between) + "Insert mode";
    return edit.DataChanged ? text + Between + "unsaved" : text;
}

namespace {

/// What the pieces of one track or more cost, and how many the owned ones do not cover.
struct Bill {
    double Price = 0;
    int Pieces = 0, ToBuy = 0;
};

Bill BillOf(const Catalogue& catalogue, const Project& project) {
    Bill bill;
    const StockColours covered = AssignStockColours(catalogue, project.Stock, project.Design.Circuit);
    for (std::size_t track = 0; track < TrackCount; ++track) {
        const EditState& edit = project.EditState;
        if (!edit.ShowsAllTracks() && static_cast<int>(track) != edit.CurrentTrack) continue;
        const std::vector<std::string>& codes = project.Design.Circuit.Tracks[track].ElementCodes;
        for (std::size_t element = 0; element < codes.size(); ++element) {
            ++bill.Pieces;
            if (!covered[track][element]) ++bill.ToBuy;
            const CatalogueEntry* const piece = catalogue.Find(codes[element]);
            if (piece != nullptr) bill.Price += double{project.Stock[piece->StockIndex].Price};
        }
    }
    return bill;
}

} // namespace

std::string FiguresText(const Catalogue& catalogue, const Project& project) {
    const Bill bill = BillOf(catalogue, project);
    if (bill.Pieces == 0) return {};
    const Units& units = project.Preferences.Units;
    std::string text;
    if (const Track* const track = EditedTrack(project.Design.Circuit, project.EditState)) {
        const BuiltLanes lanes = LanesAsBuilt(catalogue, *track);
        text = "lanes " + FineLength(lanes.Lengths[0], units) + " and " + FineLength(lanes.Lengths[1], units) + " " +
               units.Name() + " as built" + Between;
    }
    if (bill.Price > 0) text += NumberText(static_cast<float>(bill.Price)) + " " + units.Currency + Between;
    return text + (bill.ToBuy == 0 ? "all owned" : std::to_string(bill.ToBuy) + " to buy");
}

std::string PlaceText(const Project& project, WorldPoint place) {
    const Units& units = project.Preferences.Units;
    return LengthLabel(place.X, units) + ", " + LengthLabel(place.Y, units) + " " + units.Name() + Between + "view " +
           LengthLabel(project.Design.View.Width, units) + " " + units.Name();
}

} // namespace pistaro

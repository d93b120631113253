#include "editor/status_text.h"

#include "catalogue/track_geometry.h"
#include "layout/built_lanes.h"
#include "layout/track_gap.h"
#include "model/length_text.h"
#include "model/money.h"
#include "text/count_text.h"
#include "text/fixed_text.h"
#include "text/minus_text.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr const char* Between = " · ";

std::string PieceCount(std::size_t pieces) { return pieces == 0 ? "empty" : CountText(pieces, "piece"); }

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

/// What some pieces cost together, and how many of them nobody knows the price of.
struct Bill {
    int Pieces = 0, Unpriced = 0;
    Cents Sum = 0;

    void Add(Cents price) {
        ++Pieces;
        if (price == 0) ++Unpriced;
        Sum += price;
    }
    bool HasPrices() const { return Unpriced < Pieces; }
};

/// Of one track or more: all pieces, and those that the owned ones do not cover.
struct Bills {
    Bill All, ToBuy;
};

Bills BillsOf(const Catalogue& catalogue, const Project& project) {
    Bills bills;
    const StockColours covered = AssignStockColours(catalogue, project.Stock, project.Design.Circuit);
    for (std::size_t track = 0; track < TrackCount; ++track) {
        const EditState& edit = project.EditState;
        if (!edit.ShowsAllTracks() && static_cast<int>(track) != edit.CurrentTrack) continue;
        const std::vector<std::string>& codes = project.Design.Circuit.Tracks[track].ElementCodes;
        for (std::size_t element = 0; element < codes.size(); ++element) {
            const CatalogueEntry* const piece = catalogue.Find(codes[element]);
            const Cents price = piece == nullptr ? 0 : CentsOf(double{project.Stock[piece->StockIndex].Price});
            bills.All.Add(price);
            if (!covered[track][element]) bills.ToBuy.Add(price);
        }
    }
    return bills;
}

/// "43.50 €, 2 without a price"
std::string SumText(const Bill& bill, const Units& units, const MoneyMarks& marks) {
    const std::string sum = MoneyText(bill.Sum, units.Currency, marks);
    return bill.Unpriced == 0 ? sum : sum + ", " + std::to_string(bill.Unpriced) + " without a price";
}

std::string ToBuyText(const Bill& bill, const Units& units, const MoneyMarks& marks) {
    if (bill.Pieces == 0) return "all owned";
    const std::string text = std::to_string(bill.Pieces) + " to buy";
    return bill.HasPrices() ? text + ": " + SumText(bill, units, marks) : text + ", without a price";
}

} // namespace

std::string FiguresText(const Catalogue& catalogue, const Project& project, const MoneyMarks& marks) {
    const Bills bills = BillsOf(catalogue, project);
    if (bills.All.Pieces == 0) return {};
    const Units& units = project.Preferences.Units;
    std::string text;
    if (const Track* const track = EditedTrack(project.Design.Circuit, project.EditState)) {
        const BuiltLanes lanes = LanesAsBuilt(catalogue, *track);
        text = "lanes " + FineLength(lanes.Lengths[0], units) + " and " + FineLength(lanes.Lengths[1], units) + " " +
               units.Name() + " as built" + Between;
    }
    if (bills.All.HasPrices()) text += "price " + SumText(bills.All, units, marks) + Between;
    return text + ToBuyText(bills.ToBuy, units, marks);
}

std::string PlaceText(const Project& project, WorldPoint place) {
    const Units& units = project.Preferences.Units;
    return WithMinus(LengthLabel(place.X, units)) + ", " + WithMinus(LengthLabel(place.Y, units)) + " " + units.Name() +
           Between + "view " + LengthLabel(project.Design.View.Width, units) + " " + units.Name();
}

} // namespace pistaro

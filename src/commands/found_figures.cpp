#include "commands/found_figures.h"

#include "commands/piece_texts.h"
#include "editor/owned_track.h"
#include "editor/view_commands.h"
#include "layout/built_lanes.h"
#include "layout/printed_box.h"
#include "search/unlike_pieces.h"
#include "text/count_text.h"
#include "text/fixed_text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pistaro {

namespace {

/// How many of each product the track uses, by head row.
UsedCounts UsedBy(const Session& session, const Track& track) {
    Circuit circuit;
    circuit.Tracks.front() = track;
    return CountUsed(session.Catalogue, circuit);
}

/// What there is of each product beyond what is used, by head row: "2 × C160, C151"; empty where there is nothing.
std::string Beyond(const Session& session, const std::vector<int>& there, const UsedCounts& used) {
    std::vector<std::string> pieces;
    for (const int row : session.Catalogue.HeadRows()) {
        const auto at = static_cast<std::size_t>(row);
        if (there[at] > used[at]) pieces.push_back(CountedPiece(session, row, there[at] - used[at]));
    }
    return Listed(pieces);
}

/// How many of the pieces that would have to be bought have no price.
int UnpricedOf(const Session& session, const UsedCounts& used) {
    const Stock& stock = session.Project.Stock;
    const PieceBox owned = OwnedBox(session.Catalogue, stock);
    int unpriced = 0;
    for (const int row : session.Catalogue.HeadRows()) {
        const auto at = static_cast<std::size_t>(row);
        if (stock[row].Price == 0) unpriced += std::max(0, used[at] - owned.Counts[at]);
    }
    return unpriced;
}

/// Whether any of the pieces has a price, owned or not.
bool HasPrices(const Session& session, const UsedCounts& used) {
    return std::ranges::any_of(session.Catalogue.HeadRows(), [&](int row) {
        return used[static_cast<std::size_t>(row)] > 0 && session.Project.Stock[row].Price > 0;
    });
}

/// The pieces that would have to be bought, with their price.
std::string LackingText(const Session& session, const Track& track) {
    const Stock& stock = session.Project.Stock;
    const UsedCounts used = UsedBy(session, track);
    const PieceBox owned = OwnedBox(session.Catalogue, stock);
    const std::string lacking = Beyond(session, used, owned.Counts);
    if (lacking.empty()) return "nothing";
    if (!HasPrices(session, used)) return lacking + "; price unknown";
    return lacking + "; " + PriceText(session, PriceOfMissing(session, track), UnpricedOf(session, used));
}

/// Whether the user has told what he owns; until then the box is what there is.
bool OwnsAny(const Session& session) { return OwnedBox(session.Catalogue, session.Project.Stock).Total() > 0; }

std::string PercentText(const LaidCircuit& circuit) {
    constexpr double hundred = 100;
    return std::to_string(std::lround(circuit.Used * hundred)) + " %";
}

int PiecesOf(const LaidCircuit& circuit) { return circuit.Track.ElementLastIndex() + 1; }

std::string MetreText(double length) {
    constexpr double cmInMetre = 100;
    return FixedText(length / cmInMetre, 2) + " m";
}

std::string LanesText(const Session& session, const LaidCircuit& circuit) {
    const std::array<double, 2> lanes = LanesAsBuilt(session.Catalogue, circuit.Track).Lengths;
    return MetreText(lanes[0]) + " and " + MetreText(lanes[1]) + ", difference " +
           FixedText(std::abs(lanes[0] - lanes[1]), 1) + " cm";
}

/// The rectangle around the circuit.
std::string GroundText(const Session& session, const LaidCircuit& circuit) {
    Design design;
    design.Circuit.Tracks.front() = circuit.Track;
    const GroundBox extent = ExtentOf(session.Catalogue, design).value_or(GroundBox());
    return std::to_string(std::lround(extent.Right - extent.Left)) + " × " +
           std::to_string(std::lround(extent.Top - extent.Bottom)) + " cm";
}

Stretches StretchesOf(const Session& session, const LaidCircuit& circuit) {
    Rows rows;
    for (const std::string& code : circuit.Track.ElementCodes) {
        const int row = session.Catalogue.FindRow(code);
        if (row >= 0) rows.push_back(row);
    }
    return pistaro::StretchesOf(session.Catalogue, rows);
}

} // namespace

Cents PriceOfMissing(const Session& session, const Track& track) {
    const UsedCounts used = UsedBy(session, track);
    Cents price = 0;
    for (const int row : session.Catalogue.HeadRows()) {
        const ProductStock product = session.Project.Stock[row];
        const int lacking = used[static_cast<std::size_t>(row)] - product.OwnedCount;
        if (lacking > 0) price += lacking * CentsOf(product.Price);
    }
    return price;
}

std::string UseAndLengthText(const LaidCircuit& circuit) {
    return PercentText(circuit) + " of the box, " + MetreText(circuit.Length);
}

std::string PiecesAndPriceText(const Session& session, const LaidCircuit& circuit) {
    std::string pieces = CountText(PiecesOf(circuit), "piece");
    if (!OwnsAny(session)) return pieces; // what the box holds need not be bought
    const Cents price = PriceOfMissing(session, circuit.Track);
    const int unpriced = UnpricedOf(session, UsedBy(session, circuit.Track));
    const bool isKnown = price > 0 || unpriced == 0;
    return pieces + ", " + (isKnown ? PriceText(session, price, 0) : std::to_string(unpriced) + " to buy");
}

std::vector<int> ElementsUnlike(const Catalogue& catalogue, const Track& circuit, const Track& varied) {
    const auto rowsOf = [&](const Track& track) {
        Rows rows;
        std::ranges::transform(track.ElementCodes, std::back_inserter(rows),
                               [&](const std::string& code) { return catalogue.FindRow(code); });
        return rows;
    };
    return PiecesUnlike(catalogue, rowsOf(circuit), rowsOf(varied));
}

std::string WallWarning(const Session& session, const Design& room, const LaidCircuit& circuit) {
    const std::vector<int> outside = BoxesOutside(session.Catalogue, circuit.Track, RoomFit(room.Room));
    if (outside.empty()) return "";
    const std::string& code = circuit.Track.ElementCodes[static_cast<std::size_t>(outside.front())];
    return "box of " + std::string(ProductCode(code)) + " in a wall";
}

std::vector<CircuitFigure> FiguresOf(const Session& session, const PieceBox& box, const Design& room,
                                     const LaidCircuit& circuit) {
    const std::string left = Beyond(session, box.Counts, UsedBy(session, circuit.Track));
    const Stretches stretches = StretchesOf(session, circuit);
    std::vector<CircuitFigure> figures{
        {"Box used", PercentText(circuit) + ", " + std::to_string(PiecesOf(circuit)) + " of " +
                         std::to_string(box.Total()) + " pieces"},
        {"Left over", left.empty() ? "nothing" : left},
        {"Lap", MetreText(circuit.Length)},
        {"Lanes", LanesText(session, circuit)},
        {"Ground", GroundText(session, circuit)},
        {"Straight", MetreText(stretches.LongestStraight) + " the longest"},
        {"Corners",
         std::to_string(stretches.LeftCorners) + " left, " + std::to_string(stretches.RightCorners) + " right"},
    };
    figures.push_back(
        {"To buy", OwnsAny(session) ? LackingText(session, circuit.Track) : "nothing, if you own the box"});
    if (const std::string warning = WallWarning(session, room, circuit); !warning.empty())
        figures.push_back({"Mind", "The " + warning + ": only its track bed lies inside the room."});
    return figures;
}

} // namespace pistaro

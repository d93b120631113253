#include "report/build_plan.h"

#include "model/stock.h"
#include "model/view_settings.h"
#include "text/count_text.h"

#include <algorithm>

namespace pistaro {

namespace {

std::vector<NeededPieces> Needed(const Catalogue& catalogue, const Stock& stock, const CircuitDrawing& drawing) {
    std::vector<int> counts(static_cast<std::size_t>(catalogue.Count()));
    for (const DrawnPiece& piece : drawing.Pieces)
        ++counts[static_cast<std::size_t>(catalogue.Find(piece.Code)->StockIndex)];
    std::vector<NeededPieces> needed;
    for (int row = 0; row < catalogue.Count(); ++row) {
        const int count = counts[static_cast<std::size_t>(row)];
        if (count > 0)
            needed.push_back({std::string(ProductCode(catalogue[row].Code)), catalogue[row].LongName, count,
                              std::max(0, count - std::max<int>(0, stock[row].OwnedCount))});
    }
    return needed;
}

std::vector<BuildStep> Steps(const std::vector<DrawnPiece>& pieces) {
    std::vector<BuildStep> steps;
    for (int at = 0; at < static_cast<int>(pieces.size()); ++at) {
        const auto trackOf = [&](int piece) { return pieces[static_cast<std::size_t>(piece)].Track; };
        const bool goesOn =
            !steps.empty() && trackOf(steps.back().First) == trackOf(at) && at - steps.back().First < PiecesOfAStep;
        if (goesOn) {
            steps.back().Last = at;
        } else {
            steps.push_back({at, at});
        }
    }
    return steps;
}

/// "3 elements are left out, since the catalogue has no such piece: "C999", "X1" x2."
std::string LeftOut(const Catalogue& catalogue, const Circuit& circuit, int chosen) {
    constexpr std::size_t mostNames = 10;
    Circuit planned;
    for (int track = 0; track < TrackCount; ++track) {
        const auto at = static_cast<std::size_t>(track);
        if (chosen == AllTracks || chosen == track) planned.Tracks[at] = circuit.Tracks[at];
    }
    const std::map<std::string, int> unknown = CountUnknownCodes(catalogue, planned);
    int count = 0;
    for (const auto& [code, times] : unknown)
        count += times;
    if (count == 0) return {};
    std::string text = CountText(count, "element") + (count == 1 ? " is" : " are") +
                       " left out, since the catalogue has no such piece:";
    std::size_t named = 0;
    for (const auto& [code, times] : unknown) {
        if (++named > mostNames) return text + " and others.";
        text += (named == 1 ? " \"" : ", \"") + code + '"' + (times > 1 ? " x" + std::to_string(times) : "");
    }
    return text + ".";
}

/// "312.5 × 205 cm"
std::string SizeText(double width, double height, const Units& units) {
    return LengthLabel(width, units) + " × " + LengthLabel(height, units) + " " + units.Name();
}

} // namespace

std::string BuildPlan::TitleOf(const BuildStep& step) const {
    const DrawnPiece& first = Piece(step.First);
    const DrawnPiece& last = Piece(step.Last);
    const std::string track = "Track " + std::to_string(first.Track + 1);
    if (step.First == step.Last) return track + ", piece " + std::to_string(first.Index);
    return track + ", pieces " + std::to_string(first.Index) + " to " + std::to_string(last.Index);
}

std::vector<StepLine> BuildPlan::LinesOf(const Catalogue& catalogue, const BuildStep& step) const {
    std::vector<StepLine> lines;
    for (int at = step.First; at <= step.Last; ++at)
        lines.push_back({std::to_string(Piece(at).Index), Piece(at).Code, catalogue.Find(Piece(at).Code)->LongName});
    return lines;
}

std::string BuildPlan::LackText() const {
    constexpr std::size_t mostNames = 12;
    if (!StockIsKnown || Needed.empty()) return {};
    int lacking = 0;
    std::size_t named = 0;
    std::string names;
    for (const NeededPieces& needed : Needed) {
        if (needed.Lacking == 0) continue;
        lacking += needed.Lacking;
        if (++named > mostNames) continue;
        names += (named == 1 ? "" : ", ") + std::to_string(needed.Lacking) + " × " + needed.Code;
    }
    if (lacking == 0) return "You own all of these pieces";
    return "You lack " + std::to_string(lacking) + " of these pieces: " + names +
           (named > mostNames ? " and others" : "");
}

std::vector<std::string> BuildPlan::Facts() const {
    std::vector<std::string> facts;
    if (!Steps.empty()) {
        Box laid;
        for (const DrawnPiece& piece : Drawing.Pieces)
            laid.Include(piece.Extent);
        const pistaro::Units& units = Drawing.Preferences.Units;
        facts.push_back(CountText(Drawing.Pieces.size(), "piece") + ", laid in " + CountText(Steps.size(), "step") +
                        " on " + SizeText(laid.Width(), laid.Height(), units) + " of floor");
        if (!Drawing.Room.Points.empty()) {
            Box room; // as it was measured, not as it is turned
            for (const RoomPoint& point : Drawing.Room.Points)
                room.Include(BoxAround(point.X, point.Y, 0, 0));
            facts.push_back("The room measures " + SizeText(room.Width(), room.Height(), units));
        }
    }
    if (const std::string lack = LackText(); !lack.empty()) facts.push_back(lack);
    if (!LeftOut.empty()) facts.push_back(LeftOut);
    return facts;
}

BuildPlan BuildPlanOf(const Catalogue& catalogue, const Project& project, int track) {
    BuildPlan plan;
    plan.Drawing = DrawingOf(catalogue, project, {.Track = track, .Room = true});
    plan.Needed = Needed(catalogue, project.Stock, plan.Drawing);
    plan.StockIsKnown =
        std::ranges::any_of(project.Stock.Products, [](const ProductStock& product) { return product.OwnedCount > 0; });
    plan.Steps = Steps(plan.Drawing.Pieces);
    plan.LeftOut = LeftOut(catalogue, project.Design.Circuit, track);
    return plan;
}

} // namespace pistaro

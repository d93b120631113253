#include "report/build_plan.h"

#include <algorithm>

namespace pistaro {

namespace {

std::vector<NeededPieces> Needed(const Catalogue& catalogue, const CircuitDrawing& drawing) {
    std::vector<int> counts(static_cast<std::size_t>(catalogue.Count()));
    for (const DrawnPiece& piece : drawing.Pieces)
        ++counts[static_cast<std::size_t>(catalogue.Find(piece.Code)->StockIndex)];
    std::vector<NeededPieces> needed;
    for (int row = 0; row < catalogue.Count(); ++row) {
        const int count = counts[static_cast<std::size_t>(row)];
        if (count > 0)
            needed.push_back({std::string(ProductCode(catalogue[row].Code)), catalogue[row].LongName, count});
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

} // namespace

std::string BuildPlan::TitleOf(const BuildStep& step) const {
    const DrawnPiece& first = Drawing.Pieces[static_cast<std::size_t>(step.First)];
    const DrawnPiece& last = Drawing.Pieces[static_cast<std::size_t>(step.Last)];
    const std::string track = "Track " + std::to_string(first.Track + 1);
    if (step.First == step.Last) return track + ", piece " + std::to_string(first.Index);
    return track + ", pieces " + std::to_string(first.Index) + " to " + std::to_string(last.Index);
}

std::vector<std::string> BuildPlan::LinesOf(const Catalogue& catalogue, const BuildStep& step) const {
    std::vector<std::string> lines;
    for (int at = step.First; at <= step.Last; ++at) {
        const DrawnPiece& piece = Drawing.Pieces[static_cast<std::size_t>(at)];
        lines.push_back(std::to_string(piece.Index) + "  " + piece.Code + "  " + catalogue.Find(piece.Code)->LongName);
    }
    return lines;
}

BuildPlan BuildPlanOf(const Catalogue& catalogue, const Project& project, int track) {
    BuildPlan plan;
    plan.Drawing = DrawingOf(catalogue, project, {.Track = track, .Numbers = true});
    plan.Needed = Needed(catalogue, plan.Drawing);
    plan.Steps = Steps(plan.Drawing.Pieces);
    return plan;
}

} // namespace pistaro

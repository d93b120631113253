#include "layout/ground_grid.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr double LeastCell = 40; ///< cm: about a piece
constexpr double MostCells = 64; ///< in a row: a circuit that is drawn out for miles gets larger cells

GroundBox BoxAround(const std::vector<Ground>& grounds) {
    GroundBox bounds = grounds.front().Box;
    for (const Ground& ground : grounds)
        bounds = bounds.Joined(ground.Box);
    return bounds;
}

} // namespace

GroundGrid::GroundGrid(std::vector<Ground> grounds) : grounds_(std::move(grounds)) {
    if (grounds_.empty()) return;
    bounds_ = BoxAround(grounds_);
    const double width = bounds_.Right - bounds_.Left;
    const double height = bounds_.Top - bounds_.Bottom;
    cellSize_ = std::max(LeastCell, std::max(width, height) / MostCells);
    columns_ = static_cast<std::size_t>(width / cellSize_) + 1;
    rows_ = static_cast<std::size_t>(height / cellSize_) + 1;

    const auto forEachCell = [&](auto visit) {
        for (std::uint32_t index = 0; index < grounds_.size(); ++index) {
            const Cells cells = CellsOf(grounds_[index].Box);
            for (int row = cells.FirstRow; row <= cells.LastRow; ++row) {
                for (int column = cells.FirstColumn; column <= cells.LastColumn; ++column)
                    visit(static_cast<std::size_t>(row) * columns_ + static_cast<std::size_t>(column), index);
            }
        }
    };
    firstOf_.assign(columns_ * rows_ + 1, 0);
    forEachCell([&](std::size_t cell, std::uint32_t) { ++firstOf_[cell + 1]; });
    for (std::size_t cell = 1; cell < firstOf_.size(); ++cell)
        firstOf_[cell] += firstOf_[cell - 1];
    entries_.resize(firstOf_.back());
    std::vector<std::uint32_t> next(firstOf_.begin(), firstOf_.end() - 1);
    forEachCell([&](std::size_t cell, std::uint32_t index) { entries_[next[cell]++] = index; });
}

GroundGrid::Cells GroundGrid::CellsOf(const GroundBox& box) const {
    if (grounds_.empty() || !bounds_.Meets(box)) return {0, -1, 0, -1};
    const auto cell = [&](double place, double origin, std::size_t count) {
        return static_cast<int>(std::clamp((place - origin) / cellSize_, 0.0, static_cast<double>(count - 1)));
    };
    return {cell(box.Left, bounds_.Left, columns_), cell(box.Right, bounds_.Left, columns_),
            cell(box.Bottom, bounds_.Bottom, rows_), cell(box.Top, bounds_.Bottom, rows_)};
}

} // namespace pistaro

// Pieces that lie about, found by place: what of a whole circuit a piece may overlap, in a time that does not grow with
// the circuit.
#pragma once

#include "layout/ground.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace pistaro {

class GroundGrid {
public:
    GroundGrid() = default;
    explicit GroundGrid(std::vector<Ground> grounds);

    const std::vector<Ground>& Grounds() const { return grounds_; }

    /// Calls visit(index, ground) once for each ground whose box shares a point with this one, in an order that only
    /// the grounds decide, until it gives false. Tells whether it never did.
    template <typename Visit>
    bool ForEachMeeting(const GroundBox& box, Visit visit) const {
        const Cells cells = CellsOf(box);
        for (int row = cells.FirstRow; row <= cells.LastRow; ++row) {
            for (int column = cells.FirstColumn; column <= cells.LastColumn; ++column) {
                const std::size_t cell = static_cast<std::size_t>(row) * columns_ + static_cast<std::size_t>(column);
                for (std::uint32_t i = firstOf_[cell]; i < firstOf_[cell + 1]; ++i) {
                    const Ground& ground = grounds_[entries_[i]];
                    if (!ground.Box.Meets(box)) continue;
                    // In each other cell that the two share it is passed over.
                    const Cells own = CellsOf(ground.Box);
                    if (std::max(own.FirstRow, cells.FirstRow) != row) continue;
                    if (std::max(own.FirstColumn, cells.FirstColumn) != column) continue;
                    if (!visit(static_cast<int>(entries_[i]), ground)) return false;
                }
            }
        }
        return true;
    }

private:
    struct Cells {
        int FirstColumn, LastColumn, FirstRow, LastRow;
    };

    /// The cells that a box meets; none where it lies beside the grid.
    Cells CellsOf(const GroundBox& box) const;

    std::vector<Ground> grounds_;
    GroundBox bounds_;
    double cellSize_ = 1;
    std::size_t columns_ = 0, rows_ = 0;
    std::vector<std::uint32_t> firstOf_; ///< of each cell, among the entries; one more at the end
    std::vector<std::uint32_t> entries_;
};

} // namespace pistaro

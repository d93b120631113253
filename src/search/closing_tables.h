// The tables in which closings are looked up: the same for every track, made when they are first needed.
#pragma once

#include "search/pose_table.h"

#include <array>
#include <memory>
#include <mutex>

namespace pistaro {

class ClosingTables {
public:
    explicit ClosingTables(const Catalogue& catalogue) : shapes_(catalogue) {}

    const PieceShapes& Shapes() const { return shapes_; }

    /// The poses that so many pieces, 0 to DeepestLevel, lead to from track of a system. May be asked from any thread.
    const PoseLevel& Level(std::uint8_t system, int pieces) const;

    /// For up to 8 pieces two halves of UsualLevel do; the next one takes ten times the room.
    static constexpr int UsualLevel = 4;
    static constexpr int DeepestLevel = 5;

private:
    PieceShapes shapes_;
    mutable std::mutex making_;
    mutable std::array<std::array<std::unique_ptr<const PoseLevel>, DeepestLevel + 1>, 2> levels_;
};

} // namespace pistaro

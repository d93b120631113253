// The poses that a number of pieces leads to, found by place: the two halves of every closing are looked up here.
#pragma once

#include "search/piece_shapes.h"

#include <cmath>
#include <cstdint>
#include <vector>

namespace pistaro {

/// A pose of a level, with the shapes that a way to it can begin and end with.
struct TablePose {
    std::uint64_t Key = 0;
    float X = 0, Y = 0;
    ShapeMask FirstShapes = 0, LastShapes = 0;
    std::uint8_t Heading = 0, System = 0;

    LatticePose Pose() const { return {X, Y, Key, Heading, System}; }
};

/// The poses that exactly so many pieces lead to, each once.
class PoseLevel {
public:
    explicit PoseLevel(std::vector<TablePose> poses);

    const std::vector<TablePose>& Poses() const { return poses_; }

    /// Calls visit(index, pose) for each pose of that heading and system within `radius` (cm) of a place.
    template <typename Visit>
    void ForEachNear(double x, double y, std::uint8_t heading, std::uint8_t system, double radius, Visit visit) const {
        const auto firstColumn = CellAt(x - radius);
        const auto lastColumn = CellAt(x + radius);
        const auto lastRow = CellAt(y + radius);
        for (auto row = CellAt(y - radius); row <= lastRow; ++row) {
            for (auto column = firstColumn; column <= lastColumn; ++column) {
                const std::uint64_t cell = CellHash(column, row, heading, system);
                if ((occupied_[cell >> bitShift_ >> 6] >> (cell >> bitShift_ & 63) & 1) == 0) continue;
                VisitCell(cell, column, row, x, y, heading, system, radius, visit);
            }
        }
    }

    /// The index of a pose that the level may hold, or -1.
    int Find(const LatticePose& pose) const;

    /// How far from the start the farthest pose lies, cm.
    double Reach() const { return reach_; }

private:
    static constexpr double CellSize = 0.5; ///< cm

    static std::int32_t CellAt(double place) { return static_cast<std::int32_t>(std::floor(place / CellSize)); }

    static std::uint64_t CellHash(std::int32_t column, std::int32_t row, std::uint8_t heading, std::uint8_t system) {
        std::uint64_t hash = static_cast<std::uint32_t>(column);
        hash = (hash << 26) ^ (static_cast<std::uint64_t>(static_cast<std::uint32_t>(row)) << 6) ^
               (static_cast<std::uint64_t>(heading) << 1) ^ system;
        hash *= 0x9E3779B97F4A7C15;
        hash ^= hash >> 29;
        return hash * 0xBF58476D1CE4E5B9;
    }

    template <typename Visit>
    void VisitCell(std::uint64_t cell, std::int32_t column, std::int32_t row, double x, double y, std::uint8_t heading,
                   std::uint8_t system, double radius, Visit& visit) const {
        const std::uint64_t bucket = cell >> bucketShift_;
        for (std::uint32_t i = firstOf_[bucket]; i < firstOf_[bucket + 1]; ++i) {
            const TablePose& pose = poses_[i];
            if (pose.Heading != heading || pose.System != system) continue;
            const double dx = pose.X - x;
            const double dy = pose.Y - y;
            if (dx * dx + dy * dy > radius * radius) continue;
            if (CellAt(pose.X) != column || CellAt(pose.Y) != row) continue; // of another cell in the same bucket
            visit(static_cast<int>(i), pose);
        }
    }

    std::vector<TablePose> poses_; ///< by bucket
    std::vector<std::uint32_t> firstOf_;
    std::vector<std::uint64_t> occupied_; ///< a bit for each of many cells: most of those asked for are empty
    int bucketShift_ = 63, bitShift_ = 63;
    double reach_ = 0;
};

/// What one more piece leads to from each pose of a level.
PoseLevel NextLevel(const PieceShapes& shapes, const PoseLevel& level);

/// The level of no piece at all.
PoseLevel StartLevel(std::uint8_t system);

} // namespace pistaro

#include "search/pose_table.h"

#include <algorithm>
#include <bit>

namespace pistaro {

namespace {

/// Poses by their names while a level is made.
class PoseSet {
public:
    explicit PoseSet(std::size_t expected) : slots_(std::bit_ceil(std::max<std::size_t>(64, expected * 2)), Empty) {}

    void Add(const LatticePose& pose, ShapeMask firstShapes, ShapeMask lastShape) {
        if ((poses_.size() + 1) * 3 > slots_.size() * 2) Grow();
        const std::size_t slot = SlotOf(pose.Key, pose.Heading, pose.System);
        if (slots_[slot] != Empty) {
            poses_[slots_[slot]].FirstShapes |= firstShapes;
            poses_[slots_[slot]].LastShapes |= lastShape;
            return;
        }
        slots_[slot] = static_cast<std::uint32_t>(poses_.size());
        poses_.push_back({.Key = pose.Key,
                          .X = static_cast<float>(pose.X),
                          .Y = static_cast<float>(pose.Y),
                          .FirstShapes = firstShapes,
                          .LastShapes = lastShape,
                          .Heading = pose.Heading,
                          .System = pose.System});
    }

    std::vector<TablePose> Take() && { return std::move(poses_); }

private:
    static constexpr std::uint32_t Empty = 0xFFFFFFFF;

    std::size_t SlotOf(std::uint64_t key, std::uint8_t heading, std::uint8_t system) const {
        const std::size_t mask = slots_.size() - 1;
        std::uint64_t hash = (key ^ (static_cast<std::uint64_t>(heading) << 1 | system)) * 0x9E3779B97F4A7C15;
        hash ^= hash >> 32;
        std::size_t slot = hash & mask;
        while (slots_[slot] != Empty) {
            const TablePose& pose = poses_[slots_[slot]];
            if (pose.Key == key && pose.Heading == heading && pose.System == system) break;
            slot = (slot + 1) & mask;
        }
        return slot;
    }

    void Grow() {
        slots_.assign(slots_.size() * 4, Empty);
        for (std::uint32_t i = 0; i < poses_.size(); ++i)
            slots_[SlotOf(poses_[i].Key, poses_[i].Heading, poses_[i].System)] = i;
    }

    std::vector<std::uint32_t> slots_;
    std::vector<TablePose> poses_;
};

} // namespace

PoseLevel::PoseLevel(std::vector<TablePose> poses) {
    const int bucketBits = static_cast<int>(std::bit_width(std::max<std::size_t>(2, poses.size()))) - 1;
    const int cellBits = bucketBits + 4;
    bucketShift_ = 64 - bucketBits;
    bitShift_ = 64 - std::max(6, cellBits);
    firstOf_.assign((std::size_t{1} << bucketBits) + 1, 0);
    occupied_.assign((std::size_t{1} << std::max(6, cellBits)) / 64, 0);

    std::vector<std::uint64_t> cellOf(poses.size());
    for (std::size_t i = 0; i < poses.size(); ++i) {
        const TablePose& pose = poses[i];
        const std::uint64_t cell = CellHash(CellAt(pose.X), CellAt(pose.Y), pose.Heading, pose.System);
        cellOf[i] = cell;
        occupied_[cell >> bitShift_ >> 6] |= std::uint64_t{1} << (cell >> bitShift_ & 63);
        ++firstOf_[(cell >> bucketShift_) + 1];
        reach_ = std::max(reach_, std::hypot(double{pose.X}, double{pose.Y}));
    }
    for (std::size_t bucket = 1; bucket < firstOf_.size(); ++bucket)
        firstOf_[bucket] += firstOf_[bucket - 1];
    std::vector<std::uint32_t> next(firstOf_.begin(), firstOf_.end() - 1);
    poses_.resize(poses.size());
    for (std::size_t i = 0; i < poses.size(); ++i)
        poses_[next[cellOf[i] >> bucketShift_]++] = poses[i];
}

int PoseLevel::Find(const LatticePose& pose) const {
    constexpr double rounding = 0.001; // the same place by two ways, cm
    int found = -1;
    ForEachNear(pose.X, pose.Y, pose.Heading, pose.System, rounding, [&](int index, const TablePose& near) {
        if (near.Key == pose.Key) found = index;
    });
    return found;
}

PoseLevel NextLevel(const PieceShapes& shapes, const PoseLevel& level) {
    PoseSet next(level.Poses().size() * 15);
    ShapeMask adapters = 0;
    for (int shape = 0; shape < shapes.Count(); ++shape) {
        if (shapes[shape].IsAdapter) adapters |= ShapeMask{1} << shape;
    }
    for (const TablePose& from : level.Poses()) {
        const LatticePose pose = from.Pose();
        const bool onlyAfterAdapter = from.LastShapes != 0 && (from.LastShapes & ~adapters) == 0;
        for (int shape = 0; shape < shapes.Count(); ++shape) {
            if (shapes[shape].EntrySystem != pose.System) continue;
            if (shapes[shape].IsAdapter && onlyAfterAdapter) continue;
            const ShapeMask last = ShapeMask{1} << shape;
            next.Add(shapes.After(pose, shape), from.FirstShapes == 0 ? last : from.FirstShapes, last);
        }
    }
    return PoseLevel(std::move(next).Take());
}

PoseLevel StartLevel(std::uint8_t system) { return PoseLevel({TablePose{.System = system}}); }

} // namespace pistaro

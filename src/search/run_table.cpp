#include "search/run_table.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>

namespace pistaro {

RunTable::RunTable(const std::vector<LayingStep>& steps, TrackSystem system, const ShapeCounts& shapes,
                   std::size_t most, StraightsInOrder order)
    : runs_{{0, 0, 0, 0, 0, 0}}, firstOfLength_{0, 1} {
    std::vector<std::uint8_t> usable;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (steps[i].Entry == system && steps[i].Exit == system) usable.push_back(static_cast<std::uint8_t>(i));
    }
    constexpr int longest = std::numeric_limits<std::uint8_t>::max();
    while (Depth() < longest) {
        const std::size_t first = firstOfLength_[static_cast<std::size_t>(Depth())];
        const std::size_t end = runs_.size();
        for (std::size_t before = first; before < end && runs_.size() <= most; ++before) {
            const Entry run = runs_[before];
            for (const std::uint8_t next : usable) {
                const LayingStep& step = steps[next];
                const bool afterStraight = run.Length > 0 && steps[run.Last].IsStraight && step.IsStraight;
                if (order == StraightsInOrder::One && afterStraight && next < run.Last) continue;
                if (!Allows(steps, shapes, before, step.Shape)) continue;
                const SearchPose pose = step.After({run.X, run.Y, run.Heading});
                runs_.push_back({static_cast<float>(pose.X), static_cast<float>(pose.Y),
                                 static_cast<std::uint32_t>(before), next, static_cast<std::uint8_t>(run.Length + 1),
                                 static_cast<std::uint8_t>(pose.Heading)});
            }
        }
        if (runs_.size() > most) runs_.resize(end); // not all of that length
        if (runs_.size() == end) break;
        firstOfLength_.push_back(runs_.size());
    }
    Index();
}

Run RunTable::StepsOfRun(std::size_t run) const {
    Run steps(runs_[run].Length);
    auto place = steps.rbegin();
    ForEachStepOf(run, [&](std::uint8_t step) { *place++ = step; });
    return steps;
}

bool RunTable::Allows(const std::vector<LayingStep>& steps, const ShapeCounts& shapes, std::size_t run,
                      int shape) const {
    int left = shapes[static_cast<std::size_t>(shape)];
    ForEachStepOf(run, [&](std::uint8_t step) { left -= steps[step].Shape == shape ? 1 : 0; });
    return left > 0;
}

std::uint32_t RunTable::HashOf(int column, int row, int heading) {
    const auto mixed = static_cast<std::uint64_t>(static_cast<std::uint32_t>(column)) * 0x9E3779B97F4A7C15 ^
                       static_cast<std::uint64_t>(static_cast<std::uint32_t>(row)) * 0xC2B2AE3D27D4EB4F ^
                       static_cast<std::uint64_t>(heading) * 0x165667B19E3779F9;
    return static_cast<std::uint32_t>(mixed >> 32);
}

void RunTable::Index() {
    const std::size_t buckets = std::bit_ceil(runs_.size());
    firstOfBucket_.assign(buckets + 1, 0);
    constexpr std::size_t bitsOfRun = 16;
    occupied_.assign(std::max<std::size_t>(1, buckets * bitsOfRun / BitsOfWord), 0);
    std::vector<std::uint32_t> bucketOf(runs_.size());
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        const std::uint32_t hash = HashOf(CellOf(runs_[i].X), CellOf(runs_[i].Y), runs_[i].Heading);
        constexpr std::uint64_t one = 1;
        occupied_[hash / BitsOfWord & (occupied_.size() - 1)] |= one << hash % BitsOfWord;
        bucketOf[i] = static_cast<std::uint32_t>(BucketOf(hash));
        ++firstOfBucket_[bucketOf[i] + 1];
    }
    std::partial_sum(firstOfBucket_.begin(), firstOfBucket_.end(), firstOfBucket_.begin());
    entries_.resize(runs_.size());
    std::vector<std::uint32_t> next(firstOfBucket_.begin(), firstOfBucket_.end() - 1);
    for (std::size_t i = 0; i < runs_.size(); ++i)
        entries_[next[bucketOf[i]]++] = static_cast<std::uint32_t>(i);
}

} // namespace pistaro

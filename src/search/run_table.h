// All runs of few pieces of one system that a box allows, found by where they lead to.
#pragma once

#include "search/laying_steps.h"

#include <cmath>
#include <cstdint>
#include <vector>

namespace pistaro {

/// Indices of steps, in the order of laying.
using Run = std::vector<std::uint8_t>;

class RunTable {
public:
    /// Of neighbouring straights in another order each is a run of its own, or only one of them is listed.
    enum class StraightsInOrder { All, One };

    /// Lists the runs of 0, 1, 2 … pieces as far as there are at most `most` of them together. The steps, of which only
    /// those within `system` count, must outlive the table.
    RunTable(const std::vector<LayingStep>& steps, TrackSystem system, const ShapeCounts& shapes, std::size_t most,
             StraightsInOrder order);

    /// The most pieces of a run.
    int Depth() const { return static_cast<int>(firstOfLength_.size()) - 2; }

    /// How many runs of up to `length` pieces there are; they come first.
    std::size_t CountUpTo(int length) const { return firstOfLength_[static_cast<std::size_t>(length) + 1]; }

    int LengthOf(std::size_t run) const { return runs_[run].Length; }
    Run StepsOfRun(std::size_t run) const;

    /// Calls visit(step) for each of its steps, the last one first.
    template <typename Visit>
    void ForEachStepOf(std::size_t run, Visit visit) const {
        for (; runs_[run].Length > 0; run = runs_[run].Before)
            visit(runs_[run].Last);
    }

    SearchPose PoseOf(std::size_t run) const { return {runs_[run].X, runs_[run].Y, runs_[run].Heading}; }

    /// Calls visit(run) for each run that leads from the origin to within `tolerance` cm of the pose, in an order that
    /// only the table decides.
    template <typename Visit>
    void ForEachTo(const SearchPose& pose, double tolerance, Visit visit) const {
        for (int row = CellOf(pose.Y - tolerance); row <= CellOf(pose.Y + tolerance); ++row) {
            for (int column = CellOf(pose.X - tolerance); column <= CellOf(pose.X + tolerance); ++column) {
                const std::uint32_t hash = HashOf(column, row, pose.Heading);
                if (!IsOccupied(hash)) continue;
                const std::size_t bucket = BucketOf(hash);
                for (std::uint32_t i = firstOfBucket_[bucket]; i < firstOfBucket_[bucket + 1]; ++i) {
                    const std::uint32_t index = entries_[i];
                    const Entry& run = runs_[index];
                    if (run.Heading != pose.Heading || CellOf(run.X) != column || CellOf(run.Y) != row) continue;
                    const double offX = run.X - pose.X;
                    const double offY = run.Y - pose.Y;
                    if (offX * offX + offY * offY <= tolerance * tolerance) visit(std::size_t{index});
                }
            }
        }
    }

private:
    struct Entry {
        float X, Y;
        std::uint32_t Before; ///< the run without its last piece
        std::uint8_t Last, Length, Heading;
    };

    static constexpr double CellsPerCm = 4;
    static constexpr std::uint32_t BitsOfWord = 64;
    static int CellOf(double place) { return static_cast<int>(std::floor(place * CellsPerCm)); }
    static std::uint32_t HashOf(int column, int row, int heading);
    std::size_t BucketOf(std::uint32_t hash) const { return hash & (firstOfBucket_.size() - 2); }
    bool IsOccupied(std::uint32_t hash) const {
        constexpr std::uint64_t one = 1;
        return (occupied_[hash / BitsOfWord & (occupied_.size() - 1)] & one << hash % BitsOfWord) != 0;
    }
    bool Allows(const std::vector<LayingStep>& steps, const ShapeCounts& shapes, std::size_t run, int shape) const;
    void Index();

    std::vector<Entry> runs_;
    std::vector<std::size_t> firstOfLength_; ///< one more at the end
    std::vector<std::uint32_t> firstOfBucket_, entries_;
    std::vector<std::uint64_t>
        occupied_; ///< a bit for each of many hashes: small enough to stay in the processor's cache
};

} // namespace pistaro
